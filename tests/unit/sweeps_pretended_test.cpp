// Runs on a host that reports success without doing anything, or lends invalid entries.
#include "platform/headless/session.h"
#include "tests/unit/support/dialog_desk.h"
#include "tests/unit/support/sweep_round.h"

namespace standin {
namespace {

class PretendedCalls : public testing::TestWithParam<Scenario> {};

// No run can detect all of that, but each must end and return its loans.
TEST_P(PretendedCalls, RunEnds) {
    const CallCounts used = Sweep{GetParam()}.Calls();
    for (std::size_t call = 0; call < kHostCallCount; ++call) {
        if (used.Of(static_cast<HostCall>(call)) == 0) {
            continue;
        }
        SCOPED_TRACE(NameOf(static_cast<HostCall>(call)));
        platform::headless::Reset();
        const Plugin plugin;
        const auto host = Build(GetParam());
        DialogDesk desk;
        Prepare(plugin, GetParam());
        App().ResetCounts();
        App().faults.pretendKind = static_cast<HostCall>(call);
        standin::Run(plugin, *host, GetParam());
        if (App().faults.pretendKind == HostCall::kFreeTGF) {
            App().lent.Clear();
        }
        App().faults = {};
        EXPECT_LE(App().alerts.size(), 2U);  // of the music, and of settings that were not stored
        EXPECT_EQ(platform::headless::OpenRegistryKeys(), 0);
        // What the host pretended to close is still open.
        while (desk.Newest() != nullptr) {
            desk.EndDialog(&desk.Newest()->window);
        }
        host->Score().CancelEdit();
        App().progressDisplays.clear();
    }
}

TEST_P(PretendedCalls, InvalidEntriesDoNotBreakRun) {
    platform::headless::Reset();
    const Plugin plugin;
    const auto host = Build(GetParam());
    const DialogDesk desk;
    Prepare(plugin, GetParam());
    App().faults.guardFrames = true;
    App().faults.wildEntries = true;
    standin::Run(plugin, *host, GetParam());
    App().faults = {};
    EXPECT_LE(App().alerts.size(), 1U);
    EXPECT_EQ(platform::headless::OpenRegistryKeys(), 0);
}

INSTANTIATE_TEST_SUITE_P(Sweep, PretendedCalls, testing::ValuesIn(Scenarios()),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace standin
