#include "platform/timer.h"

#include "platform/headless/state.h"

namespace platform {

std::uintptr_t StartThreadTimer(std::uint32_t /*milliseconds*/, TimerRoutine routine) noexcept {
    headless::State& state = headless::CurrentState();
    if (state.timersRefused) {
        return 0;
    }
    state.timers[++state.lastTimer] = routine;
    return state.lastTimer;
}

bool StopThreadTimer(std::uintptr_t timer) noexcept {
    return headless::CurrentState().timers.erase(timer) != 0;
}

}  // namespace platform
