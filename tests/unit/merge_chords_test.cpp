// Notes that begin together and last as long become one chord.
#include "tests/unit/merge_table.h"

namespace standin {
namespace {

constexpr MergeCase kChords[] = {
    {"OwnNotesComeFirst", "q:g4,c4 h.:r", "q:e4 h.:r", "q:g4,c4,e4 h.:r", "q:r h.:r"},
    {"OtherDurationsStayApart", "q:c4 q:d4 h:e4", "h:g4 h:a4", "q:c4 q:d4 h:e4,a4", "h:g4 h:r"},
    {"EqualPitchesAreBothKept", "w:c4", "w:c4", "w:c4,c4", "w:r"},
    {"TwelveNotesFit", "w:c4,d4,e4,f4,g4,a4,b4", "w:c5,d5,e5,f5,g5",
     "w:c4,d4,e4,f4,g4,a4,b4,c5,d5,e5,f5,g5", "w:r"},
    {"ThirteenAreLeftAlone", "w:c4,d4,e4,f4,g4,a4,b4,c5", "w:d5,e5,f5,g5,a5",
     "w:c4,d4,e4,f4,g4,a4,b4,c5", "w:d5,e5,f5,g5,a5"},
    {"TiesComeAlong", "w:c4", "w:e4~", "w:c4,e4~", "w:r"},
    {"GraceNotesWithTheirLike", "ge:c4 q:d4 h.:r", "ge:e4 q:f4 h.:r", "ge:c4,e4 q:d4,f4 h.:r",
     "q:r h.:r"},
    {"GraceNotesOfOtherPlacesStay", "gs:c4 ge:c4 q:d4 h.:r", "gs:e4 q:g4 h.:r",
     "gs:c4 ge:c4 q:d4,g4 h.:r", "gs:e4 q:r h.:r"},
    {"TupletsOfBothStay", "(3:2 e:c4 e:d4 e:e4) h.:r", "(3:2 e:e4 e:f4 e:g4) h.:r",
     "(3:2 e:c4,e4 e:d4,f4 e:e4,g4) h.:r", "(3:2 e:r e:r e:r) h.:r"},
    {"ATripletIsNoEighth", "(3:2 e:c4 e:d4 e:e4) h.:r", "e:e4 e:f4 h.:r",
     "(3:2 e:c4 e:d4 e:e4) h.:r", "e:e4 e:f4 h.:r"},
    {"VoiceTwoJoinsVoiceTwo", "h:c5 v2{q:a4 q:g4} h:r", "h:e5 v2{q:c4 q:b3} h:r",
     "h:c5,e5 v2{q:a4,c4 q:g4,b3} h:r", "h:r v2{q:r q:r} h:r"},
    {"VoiceTwoTakesVoiceOneWhenAlone", "h:c5 v2{q:a4 q:g4} h:r", "q:c4 q:b3 h:r",
     "h:c5 v2{q:a4,c4 q:g4,b3} h:r", "q:r q:r h:r"},
    {"OneOfTwoTakersGetsIt", "q:c5 v2{q:a4} h.:r", "q:e4 h.:r", "q:c5,e4 v2{q:a4} h.:r",
     "q:r h.:r"},
    {"HiddenRestsAreNoNotes", "q:c4 q:x h:d4", "h:g4 h:g4", "q:c4 q:x h:d4,g4", "h:g4 h:r"},
};

TEST(Chords, FormOfWhatSoundsTogether) {
    for (const MergeCase& c : kChords) {
        ExpectMerge(c);
    }
}

TEST(ChordRegion, BothEndsAreInside) {
    StandIn host{1, 3};
    for (u16 measure = 1; measure <= 3; ++measure) {
        host.Layer(1, measure, 0, "q:c4 q:c4 q:c4 q:c4");
        host.Layer(1, measure, 1, "q:e4 q:e4 q:e4 q:e4");
    }
    host.Select(1, 1, 1024, 1, 3, 2048);
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 1, 0), "q:c4 q:c4,e4 q:c4,e4 q:c4,e4");
    EXPECT_EQ(host.Layer(1, 2, 0), "q:c4,e4 q:c4,e4 q:c4,e4 q:c4,e4");
    EXPECT_EQ(host.Layer(1, 3, 0), "q:c4,e4 q:c4,e4 q:c4,e4 q:c4");
    EXPECT_EQ(host.Layer(1, 3, 1), "q:r q:r q:r q:e4");
}

TEST(ChordRegion, StaffWithATimeOfItsOwn) {
    // Twice as many units in the staff as in the measure: positions are scaled to compare.
    StandIn host;
    host.Score().SetMeasureDuration(host.Staff(1), 1, 8192);
    host.Layer(1, 1, 0, "w:c4 w:c4");
    host.Layer(1, 1, 1, "w:e4 w:e4");
    host.Select(1, 1, 0, 1, 1, 2047);
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 1, 0), "w:c4,e4 w:c4");
}

TEST(Layers, AllGoInOrderIntoTheDestination) {
    StandIn host;
    host.Layer(1, 1, 0, "w:c4");
    host.Layer(1, 1, 1, "w:d4");
    host.Layer(1, 1, 2, "w:e4");
    host.Layer(1, 1, 3, "w:f4");
    host.SelectAll();
    Plugin{}.Merge(host, {.destination = 1});
    EXPECT_EQ(host.Layer(1, 1, 1), "w:d4,c4,e4,f4");
    EXPECT_EQ(host.Layer(1, 1, 0), "w:r");
}

}  // namespace
}  // namespace standin
