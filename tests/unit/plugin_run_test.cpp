// One run: region, edit, errors, settings.
#include <algorithm>
#include <cstring>
#include <tuple>

#include "tests/unit/support/plugin_driver.h"

namespace standin {
namespace {

void TwoLayers(StandIn& host) {
    host.LayerEverywhere(0, "w:c4");
    host.LayerEverywhere(1, "w:e4");
}

TEST(Edit, IsOneUndoStep) {
    const std::u16string numbers[] = {u"12a", std::u16string(30, u'9')};
    for (const std::u16string& number : numbers) {
        StandIn host{1, 12};
        TwoLayers(host);
        host.Score().SetMeasureNumberText(12, number);
        host.Select(1, 5, 0, 1, 12, kEndOfMeasure);
        const u64 before = host.Score().Digest();
        Plugin{}.Merge(host);
        EXPECT_EQ(host.Layer(1, 12, 0), "w:c4,e4");
        EXPECT_EQ(host.Score().UndoTexts(),
                  std::vector<std::u16string>{u"Plyweld 5-" + number.substr(0, 24)});
        ASSERT_EQ(App().redrawn.size(), 1U);
        EXPECT_EQ(App().redrawn[0].startMeasure, 5);
        host.Score().Undo();
        EXPECT_EQ(host.Score().Digest(), before);
    }
}

TEST(Region, InStaffLists) {
    constexpr u16 kList = 65501;
    // The list, the selection, the staves merged; all by their slots in the score.
    const std::tuple<std::vector<i16>, EREGION, std::vector<i16>> cases[] = {
        {{3, 1}, EREGION{kList, 1, 1, 0, kList, 2, 1, kEndOfMeasure}, {1, 3}},
        {{3, 1}, EREGION{kList, 2, 1, 0, 0, 3, 1, kEndOfMeasure}, {1, 3}},
        {{3, 1}, EREGION{kList, 2, 1, 0, 0, 2, 1, kEndOfMeasure}, {1, 2}},  // 2 is not in the list
        // The last staff has a slot in the start's list, the score's own.
        {{2, 3}, EREGION{0, 1, 1, 0, kList, 2, 1, kEndOfMeasure}, {1, 2, 3}},
        {{3, 1, 2}, EREGION{0, 1, 1, 0, kList, 3, 1, kEndOfMeasure}, {1, 2}},
        // The last staff is above the first.
        {{3, 1}, EREGION{0, 2, 1, 0, kList, 2, 1, kEndOfMeasure}, {1, 2}},
    };
    for (const auto& [list, selection, mergedSlots] : cases) {
        StandIn host{3, 1};
        TwoLayers(host);
        std::vector<u16> staves;
        for (const i16 slot : list) {
            staves.push_back(host.Staff(slot));
        }
        host.Score().SetStaffList(kList, staves);
        host.Score().selection = selection;
        Plugin{}.Merge(host);
        for (i16 slot = 1; slot <= 3; ++slot) {
            const bool merged = std::ranges::count(mergedSlots, slot) != 0;
            EXPECT_EQ(host.Layer(slot, 1, 0), merged ? "w:c4,e4" : "w:c4") << slot;
        }
    }
}

TEST(Run, NothingToDoChangesNothing) {
    for (const u16 alert : {u16{22002}, u16{22003}}) {
        const bool selected = alert == 22002;  // and the same layer in both lists
        StandIn host;
        TwoLayers(host);
        selected ? host.SelectAll() : host.SelectNothing();
        const u64 before = host.Score().Digest();
        Plugin{}.Merge(host, {.source = selected ? u16{0} : kAllLayers});
        ASSERT_EQ(App().alerts.size(), 1U);
        EXPECT_EQ(App().alerts[0].stringId, alert);
        EXPECT_EQ(host.Score().Digest(), before);
        EXPECT_TRUE(App().redrawn.empty());
        EXPECT_EQ(App().calls.Of(HostCall::kEndFinaleEdit), 1U);
        EXPECT_EQ(App().calls.Of(HostCall::kCancelFinaleEdit), 0U);
    }
}

TEST(Run, WithoutADocument) {
    StandIn host;
    const Plugin plugin;
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kGetCurrentEnigmaDocument);
    plugin.Merge(host);
    ASSERT_EQ(App().alerts.size(), 1U);
    EXPECT_EQ(App().alerts[0].text, u"No open document.");
    EXPECT_EQ(App().calls.Of(HostCall::kStartFinaleEdit), 0U);
}

TEST(Run, LoadsAndStoresSettings) {
    const std::pair<std::vector<u8>, MergeOptions> cases[] = {
        {{}, {}},
        {{0xFF, 0xFF, 2, 0, 3, 0, 0, 0, 0, 0, 1, 0},
         {.source = 2, .destination = 3, .rebeam = 0, .hideAddedRests = 1}},
        {{12, 0, 2, 0, 3}, {.source = 2, .destination = 3, .rebeam = 0}},  // too short
    };
    for (const auto& [stored, used] : cases) {
        StandIn host;
        host.SelectAll();
        const Plugin plugin;
        if (!stored.empty()) {
            Plugin::StoreBytes("Plyweld", "ZKCF22000", stored.data(),
                               static_cast<u32>(stored.size()));
        }
        EXPECT_EQ(plugin.InvokeWithShift(host), 0);
        const std::vector<u8> bytes = Plugin::Stored("Plyweld", "ZKCF22000");
        ASSERT_EQ(bytes.size(), sizeof(MergeOptions));
        EXPECT_EQ(std::memcmp(bytes.data(), &used, sizeof(MergeOptions)), 0);
    }
}

}  // namespace
}  // namespace standin
