#include "host/desktop/toolkit/windows_disabled.h"

namespace standin::desktop {

WindowsDisabled::WindowsDisabled() {
    EnumThreadWindows(GetCurrentThreadId(), Disable, reinterpret_cast<LPARAM>(this));
}

BOOL CALLBACK WindowsDisabled::Disable(HWND window, LPARAM self) {
    if (IsWindowVisible(window) != 0 && IsWindowEnabled(window) != 0) {
        reinterpret_cast<WindowsDisabled*>(self)->m_windows.push_back(window);
        EnableWindow(window, FALSE);
    }
    return TRUE;
}

void WindowsDisabled::Restore() {
    for (HWND window : m_windows) {
        if (IsWindow(window) != 0) {
            EnableWindow(window, TRUE);
        }
    }
    m_windows.clear();
}

}  // namespace standin::desktop
