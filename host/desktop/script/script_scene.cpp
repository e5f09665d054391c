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

ScriptLanguage SessionLanguage() {
    return PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_SPANISH ? ScriptLanguage::kSpanish
                                                                     : ScriptLanguage::kEnglish;
}

}  // namespace standin::desktop
