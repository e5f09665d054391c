// The one state behind platform/headless: what session.h sets and the operations answer from.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "platform/headless/session.h"
#include "platform/timer.h"
#include "platform/window.h"

namespace platform::headless {

struct State {
    bool shiftDown = false;
    std::optional<Language> language;
    std::set<std::string> hiddenFunctions;
    std::map<std::uintptr_t, TimerRoutine> timers;
    std::uintptr_t lastTimer = 0;
    bool timersRefused = false;
    bool conversionsRefused = false;
    Rectangle desktop{0, 0, 1920, 1080};
    Window focus = nullptr;
};

State& CurrentState();

// Empties the registry; keys still open behave as deleted ones.
void ResetRegistry();

}  // namespace platform::headless
