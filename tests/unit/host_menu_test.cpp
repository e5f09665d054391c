// The host's menu commands on layers.
#include "tests/unit/support/loan.h"

namespace standin {
namespace {

i16 Execute(u16 command) {
    return FX_ExecuteMenuItem(command, kInterfaceVersion);
}

TEST(HostMenu, ShowsActiveLayerAlone) {
    const StandIn host;
    EXPECT_EQ(Execute(MenuCommand::kFirstLayer + 4), 0) << "there are four layers";
    ASSERT_EQ(Execute(MenuCommand::kFirstLayer + 2), 1);
    for (const bool alone : {false, true}) {
        for (i16 layer = -1; layer <= 4; ++layer) {
            const bool isShown = alone ? layer == 2 : layer >= 0 && layer < 4;
            EXPECT_EQ(FX_GetShowLayer(layer, kInterfaceVersion) != 0, isShown) << layer;
        }
        ASSERT_EQ(Execute(MenuCommand::kShowActiveLayerOnly), 1);
    }
}

TEST(HostMenu, ClearingPartsLeavesRests) {
    // The contents of the first and the last of three measures afterwards.
    const auto cleared = [](i32 firstPosition, i32 lastPosition) {
        constexpr const char* kMusic = "q:c4 (3:2 e:d4 ge:g4 e:e4 e:f4) h:g4";
        StandIn host{3, 4};
        host.LayerEverywhere(0, kMusic);
        host.LayerEverywhere(1, kMusic);
        host.Select(2, 2, firstPosition, 2, 4, lastPosition);
        App().activeLayer = 1;
        EXPECT_EQ(Execute(MenuCommand::kClearLayer), 1);
        EXPECT_EQ(host.Layer(2, 3, 1), "");
        EXPECT_EQ(host.Layer(2, 1, 1), kMusic);
        EXPECT_EQ(host.Layer(2, 3, 0), kMusic) << "another layer";
        EXPECT_EQ(host.Layer(1, 3, 1), kMusic) << "another staff";
        EXPECT_EQ(host.Layer(3, 3, 1), kMusic);
        return host.Layer(2, 2, 1) + " | " + host.Layer(2, 4, 1);
    };
    EXPECT_EQ(cleared(0, kEndOfMeasure), " | ");
    EXPECT_EQ(cleared(0, 4095), " | ");
    EXPECT_EQ(cleared(1024, kEndOfMeasure), "q:c4 (3:2 e:r e:r e:r) h:r | ");
    EXPECT_EQ(cleared(0, 1024), " | q:r (3:2 e:r ge:g4 e:e4 e:f4) h:g4") << "the end inclusive";
    EXPECT_EQ(cleared(0, 1023), " | q:r (3:2 e:d4 ge:g4 e:e4 e:f4) h:g4");
}

TEST(HostMenu, ClearedEntriesKeepOnlyTuplets) {
    StandIn host;
    host.Layer(1, 1, 0, "q:c4 (3:2 e:d4 e:e4 e:f4)");
    host.Attach({1, 1, 0, 1}, kArticulation, "a");
    host.Attach({1, 1, 0, 0}, kArticulation, "c");
    host.Select(1, 1, 1024, 1, 1, kEndOfMeasure);
    ASSERT_EQ(Execute(MenuCommand::kClearLayer), 1);
    EXPECT_EQ(host.Layer(1, 1, 0), "q:c4 (3:2 e:r e:r e:r)");
    EXPECT_EQ(host.Times(1, 1, 0), "0+1024 1024+341 1365+342 1707+341");
    EXPECT_EQ(host.Attached({1, 1, 0, 1}, kArticulation), "");
    EXPECT_EQ(host.Attached({1, 1, 0, 0}, kArticulation), "c");
    ASSERT_TRUE(host.Score().Undo());
    EXPECT_EQ(host.Attached({1, 1, 0, 1}, kArticulation), "a");

    host.SelectNothing();
    EXPECT_EQ(Execute(MenuCommand::kClearLayer), 0);
}

}  // namespace
}  // namespace standin
