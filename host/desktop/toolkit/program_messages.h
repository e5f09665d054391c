// The messages that the program sends to its own main window.
#pragma once

#include "host/desktop/toolkit/windows_api.h"

namespace standin::desktop {

// Runs the std::function<void()> that the last parameter points to.
inline constexpr UINT kRunRoutine = WM_APP + 1;
// Returns whether input or painting is pending for the window's thread, after it has received the
// window system's messages so far.
inline constexpr UINT kWorkIsWaiting = WM_APP + 2;

}  // namespace standin::desktop
