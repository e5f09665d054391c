// The messages that the program sends to its own main window.
#pragma once

#include "host/desktop/toolkit/windows_api.h"

namespace standin::desktop {

// Runs the std::function<void()> that the last parameter points to.
inline constexpr UINT kRunRoutine = WM_APP + 1;
// Answers whether input or something to paint waits for the window's thread, once it has heard
// what the window system has to say by now.
inline constexpr UINT kWorkIsWaiting = WM_APP + 2;

}  // namespace standin::desktop
