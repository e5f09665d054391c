// Visits windows in sequence. An exception of a visit reaches the caller, but does not pass through
// the system, which calls the visits.
#pragma once

#include <exception>

#include "host/desktop/toolkit/windows_api.h"
#include "platform/guarded.h"

namespace standin::desktop {

template <typename Visit>
class WindowVisits {
public:
    explicit WindowVisits(Visit& visit) : m_visit{visit} {}

    static BOOL CALLBACK Next(HWND window, LPARAM self) noexcept {
        auto& visits = *reinterpret_cast<WindowVisits*>(self);
        const auto visitOne = [&] {
            visits.m_visit(window);
            return TRUE;
        };
        return platform::Guarded(FALSE, visitOne, &visits.m_thrown);
    }

    LPARAM Parameter() noexcept { return reinterpret_cast<LPARAM>(this); }

    void Rethrow() const {
        if (m_thrown != nullptr) {
            std::rethrow_exception(m_thrown);
        }
    }

private:
    Visit& m_visit;
    std::exception_ptr m_thrown;
};

// The top-level windows of a thread.
template <typename Visit>
void ForEachWindowOf(DWORD thread, Visit visit) {
    WindowVisits<Visit> visits{visit};
    EnumThreadWindows(thread, WindowVisits<Visit>::Next, visits.Parameter());
    visits.Rethrow();
}

// Those in front first, of all programs.
template <typename Visit>
void ForEachWindow(Visit visit) {
    WindowVisits<Visit> visits{visit};
    EnumWindows(WindowVisits<Visit>::Next, visits.Parameter());
    visits.Rethrow();
}

// The windows inside a window, at every depth.
template <typename Visit>
void ForEachInside(HWND window, Visit visit) {
    WindowVisits<Visit> visits{visit};
    EnumChildWindows(window, WindowVisits<Visit>::Next, visits.Parameter());
    visits.Rethrow();
}

}  // namespace standin::desktop
