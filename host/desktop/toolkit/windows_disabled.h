// Blocks user input to all other windows of the thread while one is in front.
#pragma once

#include <vector>

#include "host/desktop/toolkit/windows_api.h"

namespace standin::desktop {

class WindowsDisabled {
public:
    // Disables every enabled top-level window of this thread.
    WindowsDisabled();
    // Enables them again.
    ~WindowsDisabled() { Restore(); }
    WindowsDisabled(const WindowsDisabled&) = delete;
    WindowsDisabled& operator=(const WindowsDisabled&) = delete;

    void Restore();

private:
    std::vector<HWND> m_windows;
};

}  // namespace standin::desktop
