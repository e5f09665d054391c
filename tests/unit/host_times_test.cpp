// When entries start, how long they take and how the host groups their beams.
#include "shell/host/detail_flags.h"
#include "tests/unit/support/loan.h"

namespace standin {
namespace {

TEST(HostTimes, FollowDurationsVoicesAndTuplets) {
    const std::pair<const char*, const char*> cases[] = {
        {"q.:c4 e:r h:d4,f#4", "0+1536 1536+512 2048+2048"},
        {"q:c4 ge:d4 gs:e4 q:f4", "0+1024 1024+0 1024+0 1024+1024"},
        // 2048 / 3 is not a whole number: 682.67, 1365.33, 2048
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

TEST(HostTimes, InvalidTupletsAreIgnored) {
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
    host.Score().PutFrame(host.Key(1, 1, 0), {host.Entry({1, 1, 0, 0})});
    EXPECT_EQ(host.Times(1, 1, 0), "0+1024");
}

TEST(HostTimes, StavesMayHaveOwnDuration) {
    StandIn host{2, 1, 3, 1024};
    host.Score().SetMeasureDuration(host.Staff(2), 1, 4608);
    EXPECT_EQ(FX_GetMeasureDuration(host.Staff(2), 1, kInterfaceVersion), 4608);
    EXPECT_EQ(FX_GetMeasureDuration(host.Staff(1), 1, kInterfaceVersion), 3072);
    EXPECT_EQ(FX_GetMeasureDuration(0, 2, kInterfaceVersion), 0);
}

// One word per beam level, one letter per entry: . none, b begin, c continue, e end, f and k a
// forward and a backward hook.
std::string BeamsOf(StandIn& host) {
    constexpr std::string_view kLetters = ".bcefk";
    const Frame* frame = host.Score().FindFrame(host.Key(1, 1, 0));
    std::string text;
    for (std::size_t level = 0; level < 8; ++level) {
        std::string word;
        for (const BeamLevels& levels : frame->beams) {
            word += kLetters[static_cast<std::size_t>(levels[level])];
        }
        if (word.find_first_not_of('.') != word.npos) {
            text += (text.empty() ? "" : " ") + word;
        }
    }
    return text;
}

i16 RebeamAll(Document& score) {
    const EREGION whole = score.WholeRegion();
    return FX_RebeamRegion(&whole, 0, kInterfaceVersion);
}

TEST(HostBeams, FollowTheTimeSignature) {
    const auto beams = [](i16 beats, i16 beatDuration, const char* layer) {
        StandIn host{1, 1, beats, beatDuration};
        host.Layer(1, 1, 0, layer);
        RebeamAll(host.Score());
        return BeamsOf(host);
    };
    EXPECT_EQ(beams(4, 1024, "e:c4 e:c4 e:c4 e:c4 e:c4 e:c4 q:c4"), "bccebe.");
    EXPECT_EQ(beams(4, 1024, "e:c4 s:c4 s:c4 e:c4 e:c4"), "bcebe .be..");
    EXPECT_EQ(beams(3, 1024, "e:c4 e:c4 e:c4 e:c4 q:c4"), "bebe.");
    // No beam contains only part of the inner tuplet and other entries.
    EXPECT_EQ(beams(2, 1024, "(3:2q e:c4 e:c4 (5:2 e:c4 e:c4 e:c4 e:c4 e:c4) e:c4 e:c4)"),
              "bebcebebe");
    EXPECT_EQ(beams(6, 512, "e:c4 e:c4 e:c4 e:c4 e:c4 e:c4"), "bcebce");
    EXPECT_EQ(beams(2, 1536, "e:c4 e:c4 e:c4 e:c4 e:c4 e:c4"), "bcebce");
    EXPECT_EQ(beams(2, 1024, "e.:c4 s:c4 s:c4 e.:c4"), "bebe .kf.");
    EXPECT_EQ(beams(4, 1024, "e:c4 e:r e:c4 e:c4"), "..be");
    EXPECT_EQ(beams(4, 1024, "s:c4 s:r e:c4"), "b.e f..");
    EXPECT_EQ(beams(4, 1024, "e:c4 e:d4! e:c4 e:c4"), "..be") << "hidden notes break";
    EXPECT_EQ(beams(4, 1024, "q:c5 v2{e:a4 e:a4} e:c5 e:c5"), ".bebe");
    EXPECT_EQ(beams(4, 1024, "e:c4 gs:d4 gs:e4 e:c4"), "bbee .be.");
}

TEST(HostBeams, KeepBreaks) {
    StandIn host;
    host.Layer(1, 1, 0, "s:c4 s:c4 s:c4 s:c4 e:c4 e:c4 e:c4 e:c4");
    host.Attach({1, 1, 0, 2}, HostTag("edsB"), "x");
    std::vector<EXENTRY> entries = host.Score().FindFrame(host.Key(1, 1, 0))->entries;
    entries[6].flags |= DetailFlag::kPrimaryBeamBreak;
    host.Score().PutFrame(host.Key(1, 1, 0), entries);
    ASSERT_EQ(RebeamAll(host.Score()), 1);
    EXPECT_EQ(BeamsOf(host), "bccebebe bebe....");
}

TEST(HostBeams, OnlyChangedFramesOfTheRegionAreBeamed) {
    StandIn host{2, 3};
    host.LayerEverywhere(3, "e:c4 e:c4");
    EREGION region = host.Score().WholeRegion();
    region.startMeasure = region.endMeasure = 2;
    ASSERT_EQ(FX_RebeamRegion(&region, 0, kInterfaceVersion), 1);
    EXPECT_EQ(App().calls.framesBeamed, 2U);
    for (int time = 1; time <= 2; ++time) {
        ASSERT_EQ(RebeamAll(host.Score()), 1);
        EXPECT_EQ(App().calls.framesBeamed, 6U) << "time " << time;
    }
    const Loan loan{host.Key(1, 3, 3)};
    ASSERT_EQ(loan.Delete(1, 1), 1);
    ASSERT_EQ(loan.Save(), 1);
    EXPECT_FALSE(host.Score().FindFrame(host.Key(1, 3, 3))->BeamedByHost())
        << "beams of music that changed are gone";
}

}  // namespace
}  // namespace standin
