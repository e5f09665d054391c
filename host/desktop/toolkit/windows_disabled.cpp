#include "host/desktop/toolkit/windows_disabled.h"

#include "host/desktop/toolkit/enumerate_windows.h"

namespace standin::desktop {

WindowsDisabled::WindowsDisabled() {
    ForEachWindowOf(GetCurrentThreadId(), [this](HWND window) {
        if (IsWindowVisible(window) != 0 && IsWindowEnabled(window) != 0) {
            m_windows.push_back(window);
            EnableWindow(window, FALSE);
        }
    });
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
