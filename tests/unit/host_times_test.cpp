// When entries start and how long they take.
#include "shell/host/host_functions.h"
#include "tests/unit/support/stand_in.h"

namespace standin {
namespace {

TEST(HostTimes, FollowFromDurationsVoicesAndTuplets) {
    const std::pair<const char*, const char*> cases[] = {
        {"q.:c4 e:r h:d4,f#4", "0+1536 1536+512 2048+2048"},
        {"q:c4 ge:d4 gs:e4 q:f4", "0+1024 1024+0 1024+0 1024+1024"},
        // 2048 / 3 is no whole number: 682.67, 1365.33, 2048
        {"(3:2 q:c4 q:d4 q:e4) h:r", "0+683 683+682 1365+683 2048+2048"},
        {"(3:2q h:c4 q:d4) h:r", "0+1365 1365+683 2048+2048"},
        {"(3:2 q:c4 (3:2 e:d4 e:e4 e:f4) q:g4) q:r",
         "0+683 683+227 910+228 1138+227 1365+683 2048+1024"},
        {"(3:2 e:c4 ge:b4 e:d4 e:e4) q:r", "0+341 341+0 341+342 683+341 1024+1024"},
        {"q:c5 v2{e:a4 e:b4 q:c4} q:d5", "0+1024 0+512 512+512 1024+1024 1024+1024"},
        {"(3:2 e:c5 v2{e:a4} e:d5 e:e5) q:r", "0+341 0+512 341+342 683+341 1024+1024"},
        {"(3:2 e:c4)", "0+341"},
    };
    for (const auto& [layer, times] : cases) {
        StandIn host;
        host.Layer(1, 1, 0, layer);
        EXPECT_EQ(host.Times(1, 1, 0), times) << layer;
        EXPECT_EQ(host.Layer(1, 1, 0), layer);
    }
}

TEST(HostTimes, SenselessTupletsAreTakenAsNone) {
    StandIn host;
    host.Layer(1, 1, 0, "q:c4");
    const u32 entry = host.EntryNumber({1, 1, 0, 0});
    constexpr EDTTuplet2005 kSenseless[] = {
        {0, 1024, 2, 1024, {}}, {-3, 1024, 2, 1024, {}}, {3, -1024, -2, 1024, {}},
        {3, 1024, 0, 1024, {}}, {1, 1, 100, 100, {}},    {32767, 32767, 32767, 32767, {}},
    };
    for (const EDTTuplet2005& tuplet : kSenseless) {
        host.Score().Records().Create(Tag::kTuplet, RecordKey::OfEntry(entry, kAppend),
                                      BytesOf(tuplet));
    }
    std::vector<EXENTRY> entries = {host.Entry({1, 1, 0, 0})};
    host.Score().PutFrame(host.Key(1, 1, 0), entries);
    EXPECT_EQ(host.Times(1, 1, 0), "0+1024");
}

TEST(HostTimes, MeasuresHaveADurationOfTheirOwnAndStavesMayDiffer) {
    StandIn host{2, 2, 3, 1024};
    EXPECT_EQ(FX_GetMeasureDuration(0, 2, kInterfaceVersion), 3072);
    host.Score().SetMeasureDuration(host.Staff(2), 2, 4608);
    EXPECT_EQ(FX_GetMeasureDuration(host.Staff(2), 2, kInterfaceVersion), 4608);
    EXPECT_EQ(FX_GetMeasureDuration(host.Staff(1), 2, kInterfaceVersion), 3072);
    host.Score().SetMeasureDuration(0, 2, 1024);  // a pickup
    EXPECT_EQ(FX_GetMeasureDuration(host.Staff(1), 2, kInterfaceVersion), 1024);
    EXPECT_EQ(FX_GetMeasureDuration(0, 3, kInterfaceVersion), 0);
    EXPECT_EQ(FX_GetMeasureDuration(99, 1, kInterfaceVersion), 0);
}

}  // namespace
}  // namespace standin
