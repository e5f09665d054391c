#include "host/desktop/script/script_scene.h"

#include <charconv>

#include "host/desktop/script/script_screen.h"

namespace standin::desktop {

HWND ScriptScene::Target() const {
    return title ? DialogTitled(window.Window(), *title) : FrontDialog(window.Window());
}

HWND ScriptScene::Control(const std::string& number) const {
    int id = 0;
    const auto read = std::from_chars(number.data(), number.data() + number.size(), id);
    return read.ec == std::errc{} ? GetDlgItem(Target(), id) : nullptr;
}

u64 ScriptScene::DocumentDigest() const {
    u64 found = 0;
    window.InWindowThread([&found] {
        const Document* document = App().CurrentDocument();
        found = document != nullptr ? document->Digest() : 0;
    });
    return found;
}

ScriptLanguage SessionLanguage() {
    return PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_SPANISH ? ScriptLanguage::kSpanish
                                                                     : ScriptLanguage::kEnglish;
}

}  // namespace standin::desktop
