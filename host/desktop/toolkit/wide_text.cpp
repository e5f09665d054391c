#include "host/desktop/toolkit/wide_text.h"

namespace standin::desktop {

std::wstring WideFromUtf8(std::string_view text) {
    const auto utf16 = platform::MultiByteToUtf16(text, platform::CodePage::kUtf8);
    return utf16 ? Wide(*utf16) : std::wstring{text.begin(), text.end()};
}

std::wstring WideText(Text text, const std::vector<std::string>& values) {
    return WideFromUtf8(Say(text, values));
}

std::string Utf8(std::wstring_view text) {
    return platform::Utf8Of(Utf16(text));
}

std::wstring TextOf(HWND window) {
    const LRESULT length = SendMessageW(window, WM_GETTEXTLENGTH, 0, 0);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied =
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

}  // namespace standin::desktop
