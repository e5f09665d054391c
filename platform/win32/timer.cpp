#include "platform/timer.h"

#include <windows.h>

#include <map>

#include "platform/guarded.h"

namespace platform {

namespace {

std::map<UINT_PTR, TimerRoutine>& Routines() {
    static std::map<UINT_PTR, TimerRoutine> routines;
    return routines;
}

void CALLBACK OnTimer(HWND, UINT, UINT_PTR timer, DWORD) noexcept {
    Guarded(false, [timer] {
        const auto routine = Routines().find(timer);
        if (routine != Routines().end()) {
            routine->second(timer);
        }
        return true;
    });
}

}  // namespace

std::uintptr_t StartThreadTimer(std::uint32_t milliseconds, TimerRoutine routine) noexcept {
    const UINT_PTR timer = ::SetTimer(nullptr, 0, milliseconds, OnTimer);
    const auto remember = [&] {
        Routines()[timer] = routine;
        return true;
    };
    if (timer == 0 || Guarded(false, remember)) {
        return timer;
    }
    ::KillTimer(nullptr, timer);
    return 0;
}

bool StopThreadTimer(std::uintptr_t timer) noexcept {
    Routines().erase(timer);
    return ::KillTimer(nullptr, timer) != 0;
}

}  // namespace platform
