// One run: region, edit, errors, settings.
#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

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

TEST(Region, InStaffLists) {
    constexpr u16 kList = 65501;
    const struct {
        std::vector<i16> list;  // slots of the score's three staves
        EREGION selection;
        std::vector<i16> merged;
    } cases[] = {
        {{3, 1}, {kList, 1, 1, 0, kList, 2, 1, kEndOfMeasure}, {1, 3}},
        // The last staff has a slot in the start's list, the score's own.
        {{2, 3}, {0, 1, 1, 0, kList, 2, 1, kEndOfMeasure}, {1, 2, 3}},
        {{3, 1, 2}, {0, 1, 1, 0, kList, 3, 1, kEndOfMeasure}, {1, 2}},
    };
    for (const auto& c : cases) {
        StandIn host{3, 1};
        TwoLayers(host, 3);
        std::vector<u16> staves;
        for (const i16 slot : c.list) {
            staves.push_back(host.Staff(slot));
        }
        host.Score().SetStaffList(kList, staves);
        host.Score().selection = c.selection;
        Plugin{}.Merge(host);
        for (i16 slot = 1; slot <= 3; ++slot) {
            const bool merged = std::count(c.merged.begin(), c.merged.end(), slot) != 0;
            EXPECT_EQ(host.Layer(slot, 1, 0), merged ? "w:c4,e4" : "w:c4") << slot;
        }
    }
}

TEST(Run, NothingToDoIsSaidAndChangesNothing) {
    const struct {
        MergeOptions options;
        bool selected;
        u16 alert;
    } cases[] = {{{.source = 1, .destination = 1}, true, 22002}, {{}, false, 22003}};
    for (const auto& c : cases) {
        StandIn host;
        TwoLayers(host);
        if (c.selected) {
            host.SelectAll();
        }
        const u64 before = host.Score().Digest();
        Plugin{}.Merge(host, c.options);
        ASSERT_EQ(App().alerts.size(), 1U);
        EXPECT_EQ(App().alerts[0].stringId, c.alert);
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

TEST(Run, ReadsItsSettingsAndWritesThemBack) {
    const struct {
        std::vector<u8> stored;
        MergeOptions used;
    } cases[] = {
        {{}, {}},
        {{0xFF, 0xFF, 2, 0, 3, 0, 0, 0, 0, 0, 1, 0},
         {.source = 2, .destination = 3, .rebeam = 0, .hideRests = 1}},
        {{12, 0, 2, 0, 3}, {.source = 2, .destination = 3, .rebeam = 0}},  // too short
    };
    for (const auto& c : cases) {
        StandIn host;
        host.SelectAll();
        const Plugin plugin;
        if (!c.stored.empty()) {
            Plugin::StoreBytes("Plyweld", "ZKCF22000", c.stored.data(),
                               static_cast<u32>(c.stored.size()));
        }
        plugin.InvokeWithShift(host);
        const std::vector<u8> bytes = Plugin::Stored("Plyweld", "ZKCF22000");
        ASSERT_EQ(bytes.size(), sizeof(MergeOptions));
        EXPECT_EQ(std::memcmp(bytes.data(), &c.used, sizeof(MergeOptions)), 0);
    }
}

}  // namespace
}  // namespace standin
