// Runs repeated with each of their calls refused, until a run meets no refusal, and on hosts
// without an export; and the calls that all of them use.
#include <cstdlib>
#include <set>

#include "tests/unit/support/sweep_round.h"

namespace standin {
namespace {

class Calls : public testing::TestWithParam<Scenario> {
protected:
    template <typename NthRefusal>
    void RefuseEach(NthRefusal nth) {
        const Plugin plugin;
        Sweep sweep{GetParam()};
        for (int call = 1; !HasFailure() && sweep.Round(plugin, nth(call)); ++call) {
        }
    }
};

TEST_P(Calls, RefusedOneAtATime) {
    RefuseEach([](int call) { return Refusal{.call = static_cast<u64>(call)}; });
}

TEST_P(Calls, RefusedFromOneCallOn) {
    RefuseEach([](int call) { return Refusal{.from = static_cast<u64>(call)}; });
}

TEST_P(Calls, RegistryCallsRefused) {
    RefuseEach(
        [](int call) { return Refusal{.firstRegistryCall = call, .lastRegistryCall = call}; });
    constexpr int kAll = 1 << 30;
    RefuseEach(
        [](int call) { return Refusal{.firstRegistryCall = call, .lastRegistryCall = kAll}; });
}

INSTANTIATE_TEST_SUITE_P(Sweep, Calls, testing::ValuesIn(Scenarios()),
                         [](const auto& test) { return test.param.name; });

std::vector<HostCall> AllCalls() {
    std::vector<HostCall> all;
    for (std::size_t i = 0; i < kHostCallCount; ++i) {
        all.push_back(static_cast<HostCall>(i));
    }
    return all;
}

// Each round loads the plug-in again, because it looks each export up only once. Runs with dialogs,
// and a third of the others unless all are requested.
std::vector<Scenario> SomeScenarios() {
    std::vector<Scenario> some;
    const std::size_t step = std::getenv("PLYWELD_LONG") != nullptr ? 1 : 3;
    for (std::size_t i = 0; i < Scenarios().size(); ++i) {
        if (i % step == 0 || Scenarios()[i].way != Scenario::Way::kShift) {
            some.push_back(Scenarios()[i]);
        }
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

TEST(Scenarios, UseEveryCall) {
    // Calls needed only after failures, or by parts of the class library that this command does not
    // use.
    const std::set<std::string> unused{"FX_CancelFinaleEdit",         "FX_FreeMeasureMetrics",
                                       "FX_GetDlgItemUser",           "FX_GetKeySig",
                                       "FX_GetEntryMetrics2014",      "FX_GetNextPartID",
                                       "FX_SetCurrentEnigmaDocument", "FX_SetCurrentPartID",
                                       "FX_SetDlgItemUser",           "FX_SetCurrentPartInView"};
    std::map<std::string, u64> calls;
    for (const Scenario& scenario : Scenarios()) {
        const Sweep sweep{scenario};
        for (const HostCall call : AllCalls()) {
            calls[NameOf(call)] += sweep.Calls().Of(call);
        }
    }
    for (const auto& [name, count] : calls) {
        EXPECT_EQ(count == 0, unused.contains(name)) << name;
    }
}

}  // namespace
}  // namespace standin
