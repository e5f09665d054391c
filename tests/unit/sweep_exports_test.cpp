// Runs in hosts that lack an export, and what all scenarios together use.
#include <cstdlib>
#include <gtest/gtest.h>
#include <set>

#include "tests/unit/support/sweep_round.h"

namespace standin {
namespace {

std::vector<HostCall> AllCalls() {
    std::vector<HostCall> all;
    for (std::size_t i = 0; i < kHostCallCount; ++i) {
        all.push_back(static_cast<HostCall>(i));
    }
    return all;
}

// Each round loads the plug-in afresh, which looks each export up once: a third of the scenarios
// unless all are asked for.
std::vector<Scenario> SomeScenarios() {
    std::vector<Scenario> some;
    const std::size_t step = std::getenv("PLYWELD_LONG") != nullptr ? 1 : 3;
    for (std::size_t i = 0; i < Scenarios().size(); i += step) {
        some.push_back(Scenarios()[i]);
    }
    return some;
}

class Exports : public testing::TestWithParam<Scenario> {};

TEST_P(Exports, Missing) {
    Sweep sweep{GetParam()};
    for (const HostCall call : AllCalls()) {
        if (sweep.Calls().Of(call) > 0 && !HasFailure()) {
            sweep.Round(Plugin{}, {.missing = {call}});
        }
    }
    sweep.Round(Plugin{}, {.missing = AllCalls()});
}

INSTANTIATE_TEST_SUITE_P(Sweep, Exports, testing::ValuesIn(SomeScenarios()),
                         [](const auto& test) { return test.param.name; });

TEST(Scenarios, UseEveryCallOfARun) {
    // What only failures need, and what the class library offers beyond this command.
    std::set<std::string> unused{
        "FX_CancelFinaleEdit", "FX_FreeMeasureMetrics",       "FX_GetDlgItemUser",
        "FX_GetKeySig",        "FX_GetEntryMetrics2014",      "FX_GetNextPartID",
        "FX_NextEData",        "FX_SetCurrentEnigmaDocument", "FX_SetCurrentPartID",
        "FX_SetDlgItemUser",   "FX_SetCurrentPartInView"};
    std::set<std::string> used;
    for (const Scenario& scenario : Scenarios()) {
        const Sweep sweep{scenario};
        for (const HostCall call : AllCalls()) {
            if (sweep.Calls().Of(call) > 0) {
                used.insert(NameOf(call));
            }
        }
    }
    for (const HostCall call : AllCalls()) {
        EXPECT_NE(used.count(NameOf(call)), unused.count(NameOf(call))) << NameOf(call);
    }
    EXPECT_GE(Scenarios().size(), 60U);
}

}  // namespace
}  // namespace standin
