#include "platform/window.h"

#include <windows.h>

#include <array>

#include "platform/win32/text_measure.h"

namespace platform {

namespace {

constexpr UINT kMoveOnly = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
constexpr UINT kSizeOnly = SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;

Rectangle FromSystem(const RECT& rect) noexcept {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

}  // namespace

std::optional<Rectangle> WindowRectangle(Window window) {
    RECT rect{};
    if (GetWindowRect(window, &rect) == 0) {
        return std::nullopt;
    }
    return FromSystem(rect);
}

void MoveWindowTo(Window window, int left, int top) {
    SetWindowPos(window, nullptr, left, top, 0, 0, kMoveOnly);
}

Rectangle DesktopRectangle() {
    if (GetSystemMetrics(SM_CMONITORS) <= 1) {
        return {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    }
    const int left = GetSystemMetrics(SM_XVIRTUALSCREEN);
    const int top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    return {left, top, left + GetSystemMetrics(SM_CXVIRTUALSCREEN),
            top + GetSystemMetrics(SM_CYVIRTUALSCREEN)};
}

std::u16string WindowCaption(Window window) {
    std::array<wchar_t, 1024> buffer{};
    const int length = GetWindowTextW(window, buffer.data(), static_cast<int>(buffer.size()));
    return {buffer.begin(), buffer.begin() + length};
}

void SetWindowCaption(Window window, const std::u16string& caption) {
    SetWindowTextW(window, reinterpret_cast<const wchar_t*>(caption.c_str()));
}

Size ClientSize(Window window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

void SetClientSize(Window window, Size size) {
    const std::optional<Rectangle> outer = WindowRectangle(window);
    if (!outer) {
        return;
    }
    const Size client = ClientSize(window);
    SetWindowPos(window, nullptr, 0, 0, outer->Width() + size.width - client.width,
                 outer->Height() + size.height - client.height, kSizeOnly);
}

std::optional<Rectangle> ControlRectangle(Window dialog, std::uint16_t control) {
    RECT rect{};
    const HWND child = GetDlgItem(dialog, control);
    if (child == nullptr || GetWindowRect(child, &rect) == 0) {
        return std::nullopt;
    }
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
    return FromSystem(rect);
}

void SetControlRectangle(Window dialog, std::uint16_t control, const Rectangle& rectangle) {
    SetWindowPos(GetDlgItem(dialog, control), nullptr, rectangle.left, rectangle.top,
                 rectangle.Width(), rectangle.Height(), SWP_NOZORDER | SWP_NOACTIVATE);
}

std::uint16_t ControlId(Window controlWindow) {
    return static_cast<std::uint16_t>(GetDlgCtrlID(controlWindow));
}

int TextWidth(Window dialog, std::uint16_t control, std::u16string_view text) {
    const HWND child = GetDlgItem(dialog, control);
    return child == nullptr ? MessageFontTextWidth(dialog, text) : WindowFontTextWidth(child, text);
}

bool FocusWindow(Window window) {
    return SetFocus(window) != nullptr;
}

std::uint32_t RegisterMessage(const char* name) {
    return RegisterWindowMessageA(name);
}

}  // namespace platform
