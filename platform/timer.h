// Timers of the user-interface thread that belong to no window.
#pragma once

#include <cstdint>

namespace platform {

using TimerRoutine = void (*)(std::uintptr_t timer);

// Calls the routine at every period until the timer is stopped, from the thread's message
// loop. Returns the timer's identifier; 0 when the system gives no timer.
std::uintptr_t StartThreadTimer(std::uint32_t milliseconds, TimerRoutine routine) noexcept;

// False if the timer does not exist.
bool StopThreadTimer(std::uintptr_t timer) noexcept;

}  // namespace platform
