// The messages that the program sends to its own main window.
#pragma once

#include "host/desktop/windows_api.h"

namespace standin::desktop {

// Runs the std::function<void()> that the last parameter points to.
inline constexpr UINT kRunRoutine = WM_APP + 1;
// Answers whether mouse or keyboard input waits for the window's thread.
inline constexpr UINT kInputIsWaiting = WM_APP + 2;

}  // namespace standin::desktop
