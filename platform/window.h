// Windows and the controls of dialogs: where they are, how large, and what they show.
// Pixels throughout; controls lie in the client coordinates of their dialog.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct HWND__;

namespace platform {

using Window = HWND__*;

// right and bottom lie just outside.
struct Rectangle {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int Width() const noexcept { return right - left; }
    int Height() const noexcept { return bottom - top; }
};

struct Size {
    int width = 0;
    int height = 0;
};

// Nothing if the window does not exist.
std::optional<Rectangle> WindowRectangle(Window window);
void MoveWindowTo(Window window, int left, int top);

// The whole desktop: one screen, or all of them together. Left and top may be negative.
Rectangle DesktopRectangle();

// At most 1023 units.
std::u16string WindowCaption(Window window);
void SetWindowCaption(Window window, const std::u16string& caption);

Size ClientSize(Window window);
// Resizes the window so that its client area gets this size.
void SetClientSize(Window window, Size size);

// Nothing when the dialog has no such control.
std::optional<Rectangle> ControlRectangle(Window dialog, std::uint16_t control);
void SetControlRectangle(Window dialog, std::uint16_t control, const Rectangle& rectangle);
std::uint16_t ControlId(Window controlWindow);

// The width of the text in the control's font; in the system's message font when the dialog has
// no such control.
int TextWidth(Window dialog, std::uint16_t control, std::u16string_view text);

// False when the system did not give it the keyboard focus.
bool FocusWindow(Window window);

// The number that the system gives to a message of this name; the same in every program.
std::uint32_t RegisterMessage(const char* name);

}  // namespace platform
