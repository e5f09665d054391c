// What a test can make the host do wrong.
#include <algorithm>

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

TEST(HostFaults, RefuseTheNthCallOverallOrOfAKind) {
    struct Case {
        FaultPlan plan;
        const char* results;
    };
    const FaultPlan::OfKind second{HostCall::kSlotToInst, 2, 2};
    const Case cases[] = {
        {{}, "111111"},
        {{.refuseCall = 3}, "110111"},
        {{.refuseFrom = 4}, "111000"},
        {{.refuseKind = second}, "111011"},
        {{.refuseKind = FaultPlan::AllOf(HostCall::kGetMaxLayers)}, "010101"},
    };
    for (const Case& c : cases) {
        StandIn host;
        App().faults = c.plan;
        const std::string expected = c.results;
        EXPECT_EQ(Succeeding(), expected);
        EXPECT_EQ(App().calls.Total(), 6U);
        EXPECT_EQ(App().calls.Of(HostCall::kSlotToInst), 3U);
        EXPECT_EQ(App().calls.refusedByPlan,
                  static_cast<u64>(std::count(expected.begin(), expected.end(), '0')));
        EXPECT_EQ(App().calls.refusedByRule, 0U);
    }
    EXPECT_STREQ(NameOf(HostCall::kGetCurrentEnigmaDocument), "FX_GetCurrentEnigmaDocument");
    EXPECT_STREQ(NameOf(HostCall::kGetCurrentWindowInfo), "FX_GetCurrentWindowInfo");
}

TEST(HostFaults, FramesAreTakenBackWhateverIsRefused) {
    StandIn host;
    Loan loan{host.Key(1, 1, 0)};
    App().faults.refuseFrom = 1;
    EXPECT_EQ(loan.Save(), 0);
    loan.Return();
    EXPECT_EQ(App().lent.Count(), 0U);
}

TEST(HostFaults, AnotherDocumentBecomesCurrentBetweenCalls) {
    StandIn host;
    const u16 other = App().OpenDocument(u"other").Number();
    App().faults.switchDocument = {2, other};
    EXPECT_EQ(FX_GetCurrentEnigmaDocument(kInterfaceVersion), host.Score().Number());
    EXPECT_EQ(FX_GetCurrentEnigmaDocument(kInterfaceVersion), other);
    EXPECT_EQ(FX_SetCurrentEnigmaDocument(host.Score().Number(), kInterfaceVersion), 1);
    EXPECT_EQ(FX_GetCurrentEnigmaDocument(kInterfaceVersion), host.Score().Number());
}

TEST(HostFaults, TheUserStopsTheProgressDisplay) {
    StandIn host;
    App().faults.stopAtProgress = 2;
    const EREGION region = host.Score().WholeRegion();
    const u64 handle = FX_StartMassEdit(&region, 0, kInterfaceVersion);
    ASSERT_NE(handle, 0U);
    EXPECT_EQ(FX_MassEditProgress(handle, 11, 7, 1, -1, kInterfaceVersion), 1);
    EXPECT_EQ(FX_MassEditProgress(handle, 11, 7, 1, -1, kInterfaceVersion), 0);
    EXPECT_EQ(FX_MassEditProgress(handle + 1, 11, 7, 1, -1, kInterfaceVersion), 0);
    EXPECT_EQ(App().progress.size(), 2U);
    EXPECT_EQ(FX_EndMassEdit(handle, 1, kInterfaceVersion), 1);
    EXPECT_EQ(App().lastProgressStopped, 1);
    EXPECT_EQ(FX_EndMassEdit(handle, 1, kInterfaceVersion), 0);
}

TEST(HostFaults, NothingWorksWithoutADocument) {
    App().Reset();
    u64 result = 0;
    EREGION selection{};
    EREGION whole{};
    EXPECT_EQ(FX_GetCurrentEnigmaDocument(kInterfaceVersion), 0);
    EXPECT_EQ(FX_GetCurERegions(&result, &selection, &whole, kInterfaceVersion), 0);
    EXPECT_EQ(FX_LoadTGF(0, 1, 1, 0, 1, kInterfaceVersion), nullptr);
    EXPECT_EQ(FX_StartFinaleEdit_UTF16(u"Edit", kInterfaceVersion), 0);
    EXPECT_EQ(FX_ExecuteMenuItem(MenuCommand::kClearLayer, kInterfaceVersion), 0);
    EXPECT_EQ(FX_GetCurrentPartID(kInterfaceVersion), -1);
    App().Reset();
}

}  // namespace
}  // namespace standin
