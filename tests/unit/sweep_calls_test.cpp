// Runs that are repeated with each of their calls refused, until a run meets no refusal.
#include <gtest/gtest.h>

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

TEST_P(Calls, RefusedFromOneOn) {
    RefuseEach([](int call) { return Refusal{.from = static_cast<u64>(call)}; });
}

TEST_P(Calls, OfTheRegistryRefused) {
    RefuseEach(
        [](int call) { return Refusal{.firstRegistryCall = call, .lastRegistryCall = call}; });
    constexpr int kAll = 1 << 30;
    RefuseEach(
        [](int call) { return Refusal{.firstRegistryCall = call, .lastRegistryCall = kAll}; });
}

INSTANTIATE_TEST_SUITE_P(Sweep, Calls, testing::ValuesIn(Scenarios()),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace standin
