// Conversions between Windows' wide characters and the program's UTF-16 and UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "host/desktop/toolkit/windows_api.h"
#include "host/texts/texts.h"
#include "platform/text.h"

namespace standin::desktop {

inline std::wstring Wide(std::u16string_view text) {
    return {text.begin(), text.end()};
}

inline std::u16string Utf16(std::wstring_view text) {
    return {text.begin(), text.end()};
}

std::wstring WideFromUtf8(std::string_view text);
// A text of the program with its values.
std::wstring WideText(Text text, const std::vector<std::string>& values = {});
std::string Utf8(std::wstring_view text);

// The window's own text, whatever its length.
std::wstring TextOf(HWND window);

}  // namespace standin::desktop
