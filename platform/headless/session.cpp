#include "platform/headless/session.h"

#include <cstdlib>
#include <string_view>
#include <vector>

#include "platform/headless/state.h"

namespace platform::headless {

State& CurrentState() {
    static State state;
    return state;
}

namespace {

Language EnvironmentLanguage() {
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0') {
            return std::string_view{value}.starts_with("es") ? Language::kSpanish
                                                             : Language::kEnglish;
        }
    }
    return Language::kEnglish;
}

}  // namespace

Language CurrentLanguage() {
    State& state = CurrentState();
    if (!state.language) {
        state.language = EnvironmentLanguage();
    }
    return *state.language;
}

void Reset() {
    CurrentState() = State{};
    ResetRegistry();
}

void HoldShift(bool down) {
    CurrentState().shiftDown = down;
}

void SetLanguage(Language language) {
    CurrentState().language = language;
}

void HideHostFunction(const std::string& name) {
    CurrentState().hiddenFunctions.insert(name);
}

int FireTimers() {
    // A routine may stop its own timer or another one.
    std::vector<std::uintptr_t> running;
    for (const auto& timer : CurrentState().timers) {
        running.push_back(timer.first);
    }
    int fired = 0;
    for (const std::uintptr_t timer : running) {
        const auto found = CurrentState().timers.find(timer);
        if (found != CurrentState().timers.end()) {
            found->second(timer);
            ++fired;
        }
    }
    return fired;
}

void RefuseTimers() {
    CurrentState().timersRefused = true;
}

void RefuseTextConversions(bool refuse) {
    CurrentState().conversionsRefused = refuse;
}

}  // namespace platform::headless
