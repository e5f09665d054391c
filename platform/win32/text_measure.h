// The width of a text in pixels.
#pragma once

#include <windows.h>

#include <string_view>

namespace platform {

// In the font that the window reports; in the stock system font when it reports none.
int WindowFontTextWidth(HWND window, std::u16string_view text);

// In the system's message font, on the window's device context.
int MessageFontTextWidth(HWND window, std::u16string_view text);

}  // namespace platform
