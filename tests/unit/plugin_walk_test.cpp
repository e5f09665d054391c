// The walk over measures and staves: progress, the user's stop, layout, preparation.
#include <tuple>

#include "tests/unit/support/plugin_driver.h"

namespace standin {
namespace {

TEST(Walk, ReportsProgressOncePerInterval) {
    // Each staff and measure counts four layers, and a report comes after the last of one.
    for (const auto& [measures, staves, stepsBetween] :
         {std::tuple{10, 6, 12}, {25, 6, 16}, {100, 30, 52}}) {
        StandIn host{staves, measures};
        host.SelectAll();
        App().lastProgressStopped = 1;
        Plugin{}.Merge(host);
        const int work = measures * staves * 4;
        EXPECT_EQ(App().progress.size(), static_cast<std::size_t>(work / stepsBetween));
        for (const ProgressReport& report : App().progress) {
            EXPECT_EQ(report.steps, stepsBetween);
            EXPECT_EQ(report.staff, 0) << "of no staff in particular";
            EXPECT_EQ(report.layer, -1) << "nor layer";
        }
        EXPECT_EQ(App().lastProgressStopped, 0);
        EXPECT_EQ(App().progressDisplaysOpened, 1U);
    }
}

TEST(Walk, EndsAtLastMeasure) {
    StandIn host{1, 2};
    host.Layer(1, 2, 1, "w:c4");
    host.Select(1, 2, 0, 1, 9, kEndOfMeasure);
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 2, 0), "w:c4");
}

TEST(Walk, UpdatesStaleLayout) {
    // Whether the first system's record and the pages' are missing, and the page updated up to.
    for (const auto& [isMissing, withoutPages, lastPage] :
         {std::tuple{false, false, 1}, {true, false, 2}, {true, true, 0}}) {
        StandIn host{1, 8};
        host.LayerEverywhere(1, "w:c4");
        host.SelectAll();
        host.Score().Records().Create(Tag::kPage, RecordKey::Other(2), BytesOf(EDTPageSpec{}));
        host.Score().MakeLayoutStale();
        if (isMissing) {
            host.Score().Records().Delete(Tag::kStaffSystem, RecordKey::Other(1));
        }
        if (withoutPages) {
            host.Score().Records().Delete(Tag::kPage, RecordKey::Other(2));
            host.Score().Records().Delete(Tag::kPage, RecordKey::Other(1));
        }
        Plugin{}.Merge(host);
        EXPECT_EQ(host.Layer(1, 8, 0), "w:c4");
        EXPECT_EQ(App().lastLayoutPage, lastPage);
        EXPECT_TRUE(App().alerts.empty());
    }
}

TEST(Walk, FailsOnUnreadableLayout) {
    StandIn host;
    host.Write({"", "w:c4"});
    host.Score().Records().Delete(Tag::kStaffSystem, RecordKey::Other(1));
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kUpdateLayout);
    const u64 before = host.Score().Digest();
    Plugin{}.Merge(host);
    EXPECT_EQ(App().alerts.size(), 1U);
    EXPECT_EQ(App().calls.Of(HostCall::kLoadTGF), 0U) << "nothing is merged";
    EXPECT_EQ(host.Score().Digest(), before);
}

TEST(Rebeam, CoversWholeMeasures) {
    StandIn host{2, 3};
    host.Layer(1, 1, 1, "e:c4 e:d4 e:e4 e:f4 h:g4");
    host.Select(1, 1, 2048, 2, 3, 1023);
    const Plugin plugin;
    plugin.Merge(host);
    EXPECT_EQ(App().calls.Of(HostCall::kRebeamRegion), 6U);
    EXPECT_EQ(+App().lastRebeamed.startPosition, 0);
    EXPECT_EQ(+App().lastRebeamed.endPosition, kEndOfMeasure);
    plugin.Merge(host, {.rebeam = 0});
    EXPECT_EQ(App().calls.Of(HostCall::kRebeamRegion), 6U);
}

TEST(Replace, RestoresView) {
    // Whether one layer is shown, the active layer, the menu commands.
    const std::tuple<bool, i16, std::vector<u16>> cases[] = {
        {false, 1, {10632, 10635, 16048, 10634, 10632}},
        {true, 1, {10635, 16048, 10634}},
        {false, 2, {10632, 16048, 10632}},  // the destination is the active layer
    };
    for (const auto& [oneLayerShown, active, commands] : cases) {
        StandIn host{1, 2};
        host.Layer(1, 1, 2, "w:c4");
        host.Layer(1, 2, 2, "w:d4");
        host.Layer(1, 2, 0, "w:e4");
        host.Select(1, 2, 0, 1, 2, kEndOfMeasure);
        App().activeLayer = active;
        if (oneLayerShown) {
            RunMenuCommand(MenuCommand::kShowActiveLayerOnly);
        }
        Plugin{}.Merge(host, {.source = 0, .destination = 2, .mode = 1});
        EXPECT_EQ(host.Layer(1, 1, 2), "w:c4");
        EXPECT_EQ(host.Layer(1, 2, 2), "w:e4");
        EXPECT_EQ(App().menuCommands, commands);
        EXPECT_EQ(App().activeLayer, active);
        EXPECT_EQ(App().ShowsActiveLayerOnly(), oneLayerShown);
    }
}

// The host ignores the menu commands or only the first ones: showing one layer alone, activating
// another. The visible layer shows which.
TEST(Replace, ClearsOnlyDestination) {
    const std::tuple<const char*, u64> results[] = {{"w:c4", 4}, {"w:e4", 5}, {"w:c4", 4}};
    for (u64 refused = 0; refused <= 2; ++refused) {
        StandIn host;
        host.Write({"w:c4", "w:e4", "w:g4"});
        App().activeLayer = 2;
        App().faults.refuseKind = FaultPlan::OfKind{HostCall::kExecuteMenuItem, 1, refused};
        if (refused == 0) {
            App().faults.pretendKind = HostCall::kExecuteMenuItem;
        }
        Plugin{}.Merge(host, {.source = 1, .mode = 1});
        EXPECT_EQ(std::tuple(host.Layer(1, 1, 0), App().calls.Of(HostCall::kExecuteMenuItem)),
                  results[refused]);
        EXPECT_EQ(host.Layer(1, 1, 2), "w:g4");
        EXPECT_EQ(App().alerts.size(), refused == 1 ? 0U : 1U);
        EXPECT_EQ(App().activeLayer, 2);
        EXPECT_FALSE(App().ShowsActiveLayerOnly());
    }
}

TEST(Replace, InvalidLayerRunsNoCommand) {
    StandIn host;
    host.Write({"w:c4"});
    Plugin{}.Merge(host, {.source = 0, .destination = 4, .mode = 1});
    EXPECT_TRUE(App().menuCommands.empty());
    EXPECT_EQ(App().alerts.size(), 1U);
}

// Host calls grow with the selected staves and measures, not with the rest of the score.
TEST(Cost, IsFlatPerStaffMeasure) {
    const auto callsFor = [](int measures) {
        StandIn host{2, measures};
        host.LayerEverywhere(0, "q:c4 q:r h:d4");
        host.LayerEverywhere(1, "q:e4 q:f4 h:g4");
        host.SelectAll();
        App().ResetCounts();
        Plugin{}.Merge(host);
        return App().calls.Total();
    };
    EXPECT_LT(callsFor(100), 11 * callsFor(10));
}

}  // namespace
}  // namespace standin
