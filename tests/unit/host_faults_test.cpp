// The faults that a test can make the host commit.
#include <algorithm>

#include "platform/module.h"
#include "tests/unit/support/loan.h"

namespace standin {
namespace {

// The results of a few calls in a row, 1 for each that succeeded.
std::string Succeeding() {
    std::string results;
    for (int i = 0; i < 3; ++i) {
        results += FX_GetMaxLayers(kInterfaceVersion) != 0 ? '1' : '0';
        results += FX_SlotToInst(1, 0, kInterfaceVersion) != 0 ? '1' : '0';
    }
    return results;
}

TEST(HostCalls, AllAreExported) {
    for (std::size_t call = 0; call < kHostCallCount; ++call) {
        const char* const name = NameOf(static_cast<HostCall>(call));
        EXPECT_NE(platform::FindHostFunction(name), nullptr) << name;
    }
}

TEST(HostFaults, RefuseNthCall) {
    const FaultPlan::OfKind second{HostCall::kSlotToInst, 2, 2};
    const std::pair<FaultPlan, std::string> cases[] = {
        {{}, "111111"},
        {{.refuseCall = 3}, "110111"},
        {{.refuseFrom = 4}, "111000"},
        {{.refuseKind = second}, "111011"},
        {{.refuseKind = FaultPlan::AllOf(HostCall::kGetMaxLayers)}, "010101"},
    };
    for (const auto& [plan, results] : cases) {
        StandIn host;
        App().faults = plan;
        EXPECT_EQ(Succeeding(), results);
        EXPECT_EQ(App().calls.Of(HostCall::kSlotToInst), 3U);
        EXPECT_EQ(App().calls.refusedByPlan, static_cast<u64>(std::ranges::count(results, '0')));
    }
}

TEST(HostFaults, AnotherDocumentBecomesCurrentBetweenCalls) {
    StandIn host;
    const u16 other = App().OpenDocument(u"other").Number();
    App().faults.switchDocument = {2, other};
    EXPECT_EQ(FX_GetCurrentEnigmaDocument(kInterfaceVersion), host.Score().Number());
    EXPECT_EQ(FX_GetCurrentEnigmaDocument(kInterfaceVersion), other);
    App().SetCurrentDocument(host.Score().Number());
}

}  // namespace
}  // namespace standin
