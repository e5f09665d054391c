// How the host groups beams, and that it does so only where something changed.
#include "shell/host/detail_flags.h"
#include "tests/unit/support/loan.h"

namespace standin {
namespace {

// One word a beam level, one letter an entry: . none, b begin, c continue, e end, f and k a
// forward and a backward hook.
std::string BeamsOf(StandIn& host, u16 measure) {
    constexpr std::string_view kLetters = ".bcefk";
    const Frame* frame = host.Score().FindFrame(host.Key(1, measure, 0));
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
    const struct {
        const char* name;
        i16 beats;
        i16 beatDuration;
        const char* layer;
        const char* beams;
    } cases[] = {
        {"ByHalfMeasure", 4, 1024, "e:c4 e:c4 e:c4 e:c4 e:c4 e:c4 q:c4", "bccebe."},
        {"SixteenthsByBeat", 4, 1024, "e:c4 s:c4 s:c4 e:c4 e:c4", "bcebe .be.."},
        {"ByBeat", 3, 1024, "e:c4 e:c4 e:c4 e:c4 q:c4", "bebe."},
        {"CompoundByThree", 6, 512, "e:c4 e:c4 e:c4 e:c4 e:c4 e:c4", "bcebce"},
        {"DottedBeats", 2, 1536, "e:c4 e:c4 e:c4 e:c4 e:c4 e:c4", "bcebce"},
        {"Hooks", 2, 1024, "e.:c4 s:c4 s:c4 e.:c4", "bebe .kf."},
        {"EighthRestBreaks", 4, 1024, "e:c4 e:r e:c4 e:c4", "..be"},
        {"ShortRestDoesNot", 4, 1024, "s:c4 s:r e:c4", "b.e f.."},
        {"HiddenNoteBreaks", 4, 1024, "e:c4 e:d4! e:c4 e:c4", "..be"},
        {"VoicesApart", 4, 1024, "q:c5 v2{e:a4 e:a4} e:c5 e:c5", ".bebe"},
        {"GraceNotesAmongThemselves", 4, 1024, "e:c4 gs:d4 gs:e4 e:c4", "bbee .be."},
    };
    for (const auto& c : cases) {
        StandIn host{1, 1, c.beats, c.beatDuration};
        host.Layer(1, 1, 0, c.layer);
        ASSERT_EQ(RebeamAll(host.Score()), 1);
        EXPECT_EQ(BeamsOf(host, 1), c.beams) << c.name;
    }
}

TEST(HostBeams, BreaksAreKept) {
    StandIn host;
    host.Layer(1, 1, 0, "s:c4 s:c4 s:c4 s:c4 e:c4 e:c4 e:c4 e:c4");
    host.Attach({1, 1, 0, 2}, HostTag("edsB"), "x");
    std::vector<EXENTRY> entries = host.Score().FindFrame(host.Key(1, 1, 0))->entries;
    entries[6].flags |= DetailFlag::kPrimaryBeamBreak;
    host.Score().PutFrame(host.Key(1, 1, 0), entries);
    ASSERT_EQ(RebeamAll(host.Score()), 1);
    EXPECT_EQ(BeamsOf(host, 1), "bccebebe bebe....");
}

TEST(HostBeams, OnlyChangedFramesOfTheRegionAreBeamed) {
    StandIn host{2, 3};
    for (u16 measure = 1; measure <= 3; ++measure) {
        host.Layer(1, measure, 0, "e:c4 e:c4");
    }
    host.Layer(2, 2, 3, "e:c4 e:c4");
    EREGION region = host.Score().WholeRegion();
    region.startMeasure = region.endMeasure = 2;
    ASSERT_EQ(FX_RebeamRegion(&region, 0, kInterfaceVersion), 1);
    EXPECT_EQ(App().calls.framesBeamed, 2U);
    for (int time = 1; time <= 2; ++time) {
        ASSERT_EQ(RebeamAll(host.Score()), 1);
        EXPECT_EQ(App().calls.framesBeamed, 4U) << "time " << time;
    }
    const Loan loan{host.Key(1, 3, 0)};
    ASSERT_EQ(loan.Delete(1, 1), 1);
    ASSERT_EQ(loan.Save(), 1);
    EXPECT_FALSE(host.Score().FindFrame(host.Key(1, 3, 0))->BeamedByHost())
        << "beams of music that changed are gone";
}

}  // namespace
}  // namespace standin
