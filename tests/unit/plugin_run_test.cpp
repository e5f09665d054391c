// One run: region, edit, errors, settings.
#include <cstring>
#include <gtest/gtest.h>

#include "platform/headless/session.h"
#include "tests/unit/plugin_driver.h"

namespace standin {
namespace {

void TwoLayers(StandIn& host, i16 staves = 1, u16 measures = 1) {
    for (i16 slot = 1; slot <= staves; ++slot) {
        for (u16 measure = 1; measure <= measures; ++measure) {
            host.Layer(slot, measure, 0, "w:c4");
            host.Layer(slot, measure, 1, "w:e4");
        }
    }
}

TEST(Edit, IsOneAndCanBeUndone) {
    StandIn host{1, 12};
    TwoLayers(host, 1, 12);
    host.Score().SetMeasureNumberText(12, u"12a");
    host.Select(1, 5, 0, 1, 12, kEndOfMeasure);
    const u64 before = host.Score().Digest();
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 12, 0), "w:c4,e4");
    EXPECT_EQ(host.Score().UndoTexts(), std::vector<std::u16string>{u"Plyweld 5-12a"});
    ASSERT_EQ(App().redrawn.size(), 1U);
    EXPECT_EQ(App().redrawn[0].startMeasure, 5);
    host.Score().Undo();
    EXPECT_EQ(host.Score().Digest(), before);
}

TEST(Region, WithEndsInTwoStaffLists) {
    struct {
        std::vector<u16> endList;  // slots of StandIn's three staves
        i16 endSlot;
        std::vector<i16> merged;
    } const cases[] = {
        // The last staff has a slot in the start's list, the score's own.
        {{2, 3}, 2, {1, 2, 3}},
        {{3, 1, 2}, 3, {1, 2}},
    };
    for (const auto& c : cases) {
        StandIn host{3, 1};
        TwoLayers(host, 3);
        std::vector<u16> staves;
        for (const u16 slot : c.endList) {
            staves.push_back(host.Staff(static_cast<i16>(slot)));
        }
        host.Score().SetStaffList(65501, staves);
        host.SelectAll();
        host.Score().selection->endStaffList = 65501;
        host.Score().selection->endSlot = c.endSlot;
        Plugin{}.Merge(host);
        for (i16 slot = 1; slot <= 3; ++slot) {
            const bool merged = std::count(c.merged.begin(), c.merged.end(), slot) != 0;
            EXPECT_EQ(host.Layer(slot, 1, 0), merged ? "w:c4,e4" : "w:c4") << slot;
        }
    }
}

TEST(Region, InAStaffListOfItsOwn) {
    StandIn host{3, 1};
    TwoLayers(host, 3);
    host.Score().SetStaffList(2, {host.Staff(3), host.Staff(1)});
    host.Score().selection = EREGION{2, 1, 1, 0, 2, 2, 1, kEndOfMeasure};
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 1, 0), "w:c4,e4");
    EXPECT_EQ(host.Layer(2, 1, 0), "w:c4");
    EXPECT_EQ(host.Layer(3, 1, 0), "w:c4,e4");
}

struct RefusedRun {
    const char* name;
    MergeOptions options;
    bool selected;
    u16 alert;
};

class NothingToDo : public testing::TestWithParam<RefusedRun> {};

TEST_P(NothingToDo, IsSaidAndChangesNothing) {
    StandIn host;
    TwoLayers(host);
    if (GetParam().selected) {
        host.SelectAll();
    }
    const u64 before = host.Score().Digest();
    Plugin{}.Merge(host, GetParam().options);
    ASSERT_EQ(App().alerts.size(), 1U);
    EXPECT_EQ(App().alerts[0].stringId, GetParam().alert);
    EXPECT_EQ(host.Score().Digest(), before);
    EXPECT_TRUE(App().redrawn.empty());
    EXPECT_EQ(App().calls.Of(HostCall::kEndFinaleEdit), 1U);
    EXPECT_EQ(App().calls.Of(HostCall::kCancelFinaleEdit), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    Run, NothingToDo,
    testing::Values(RefusedRun{"SameLayers", {.source = 1, .destination = 1}, true, 22002},
                    RefusedRun{"NoSelection", {}, false, 22003}),
    [](const auto& test) { return test.param.name; });

TEST(Run, WithoutADocument) {
    StandIn host;
    const EREGION whole = host.Score().WholeRegion();
    const Plugin plugin;
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kGetCurrentEnigmaDocument);
    plugin.Merge(host);
    ASSERT_EQ(App().alerts.size(), 1U);
    EXPECT_EQ(App().alerts[0].text, u"No open document.");
    EXPECT_EQ(App().calls.Of(HostCall::kStartFinaleEdit), 0U);
    EXPECT_EQ(whole.startMeasure, 1);
}

struct StoredCase {
    const char* name;
    std::vector<u8> stored;
    MergeOptions used;
};

class Settings : public testing::TestWithParam<StoredCase> {};

TEST_P(Settings, AreReadAndWrittenBack) {
    StandIn host;
    host.SelectAll();
    const Plugin plugin;
    if (!GetParam().stored.empty()) {
        Plugin::StoreBytes("Plyweld", "ZKCF22000", GetParam().stored.data(),
                           static_cast<u32>(GetParam().stored.size()));
    }
    platform::headless::HoldShift(true);
    plugin.Invoke(host);
    const std::vector<u8> bytes = Plugin::Stored("Plyweld", "ZKCF22000");
    ASSERT_EQ(bytes.size(), sizeof(MergeOptions));
    EXPECT_EQ(std::memcmp(bytes.data(), &GetParam().used, sizeof(MergeOptions)), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Run, Settings,
    testing::Values(
        StoredCase{"NothingStored", {}, {}},
        StoredCase{"Stored",
                   {0xFF, 0xFF, 2, 0, 3, 0, 0, 0, 0, 0, 1, 0},
                   {.source = 2, .destination = 3, .rebeam = 0, .hideRests = 1}},
        StoredCase{"TooShort", {12, 0, 2, 0, 3}, {.source = 2, .destination = 3, .rebeam = 0}}),
    [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace standin
