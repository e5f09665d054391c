// The result of merging two layers: notes with the same start and duration become chords, and
// source music of exactly the same time replaces runs of destination rests.
#include <tuple>

#include "host/verify/merge_faults.h"
#include "tests/unit/support/mannered.h"
#include "tests/unit/support/named_cases.h"
#include "tests/unit/support/plugin_driver.h"

namespace standin {
namespace {

struct MergeCase {
    const char* name;
    const char* destination;
    const char* source;
    const char* destinationAfterwards;
    const char* sourceAfterwards;
    i32 firstPosition = 0;  // of the selection
    i32 lastPosition = kEndOfMeasure;

    friend void PrintTo(const MergeCase& row, std::ostream* out) { *out << row.name; }
};

class MergeRules : public testing::TestWithParam<MergeCase> {};

TEST_P(MergeRules, Hold) {
    const MergeCase& c = GetParam();
    StandIn host;
    host.Layer(1, 1, 0, c.destination);
    host.Layer(1, 1, 1, c.source);
    host.Select(1, 1, c.firstPosition, 1, 1, c.lastPosition);
    const auto music = Music(host.Score());
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 1, 0), c.destinationAfterwards);
    EXPECT_EQ(host.Layer(1, 1, 1), c.sourceAfterwards);
    EXPECT_EQ(Music(host.Score()), music);
    EXPECT_TRUE(App().alerts.empty());
    EXPECT_EQ(App().calls.flagsOutOfStep, 0U);
    EXPECT_EQ(App().calls.refusedByRule, 0U);
}

constexpr MergeCase kChords[] = {
    {"OwnNotesComeFirst", "q:g4,c4 h.:r", "q:e4 h.:r", "q:g4,c4,e4 h.:r", "q:r h.:r"},
    {"OtherDurationsStayApart", "q:c4 q:d4 h:e4", "h:g4 h:a4", "q:c4 q:d4 h:e4,a4", "h:g4 h:r"},
    {"EqualPitchesAreBothKept", "w:c4", "w:c4", "w:c4,c4", "w:r"},
    {"TwelveNotesFit", "w:c4,d4,e4,f4,g4,a4,b4", "w:c5,d5,e5,f5,g5",
     "w:c4,d4,e4,f4,g4,a4,b4,c5,d5,e5,f5,g5", "w:r"},
    {"ThirteenAreLeftAlone", "w:c4,d4,e4,f4,g4,a4,b4,c5", "w:d5,e5,f5,g5,a5",
     "w:c4,d4,e4,f4,g4,a4,b4,c5", "w:d5,e5,f5,g5,a5"},
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
    {"TheOneOfItsVoiceGetsIt", "q:c5 q:d5 v2{q:b4} h:r", "h:e4 v2{q:g3 q:a3} h:r",
     "q:c5 q:d5 v2{q:b4,a3} h:r", "h:e4 v2{q:g3 q:r} h:r"},
    {"ASecondVoiceMayGoOnLonger", "q:c4 q:d4 h:e4", "q:c5 v2{q:a4 q:g4 q:f4} q:d5 h:e5",
     "q:c4,c5 q:d4,d5 h:e4,e5", "q:r v2{q:a4 q:g4 q:f4} q:r h:r"},
    {"HiddenRestsAreNoNotes", "q:c4 q:x h:d4", "h:g4 h:g4", "q:c4 q:x h:d4,g4", "h:g4 h:r"},
};

constexpr MergeCase kRestFill[] = {
    {"AfterAChord", "q:c4 q:r h:r", "q:e4 q:f4 q:g4 q:a4", "q:c4,e4 q:f4 q:g4 q:a4",
     "q:r q:r q:r q:r"},
    {"NoEntryEndsWithTheRun", "h:r h:c4", "q:e4 h:f4 q:g4", "h:r h:c4", "q:e4 h:f4 q:g4"},
    {"EmptyReceivesEverything", "", "gs:c4 q:d4 v2{e:a3 e:b3} q:r h:f4",
     "gs:c4 q:d4 v2{e:a3 e:b3} q:r h:f4", "q:r v2{e:r e:r} q:r h:r"},
    {"EmptyReceivesHiddenRestsToo", "", "h:r h:x", "h:r h:x", "h:r h:x"},
    {"LaunchingRestsStay", "h:r v2{q:c4 q:d4} h:r", "h:e4 h:g4", "h:r v2{q:c4 q:d4} h:g4",
     "h:e4 h:r"},
    {"VoiceTwoInsideASpanComesAlong", "h:r h:c4", "h:e5 v2{q:a4 q:g4} h:b4",
     "h:e5 v2{q:a4 q:g4} h:c4,b4", "h:r v2{q:r q:r} h:r"},
    // The first second voice would overlap the existing one.
    {"SecondVoicesDoNotOverlap", "q:r q:c4 v2{q:a3} h:r", "q:e5 v2{h:a4} h.:b4",
     "q:r q:c4 v2{q:a3} h:r", "q:e5 v2{h:a4} h.:b4"},
    {"GraceNotesAtTheStartComeAlong", "h:c4 h:r", "h:e4 gs:f4 h:g4", "h:c4,e4 gs:f4 h:g4",
     "h:r h:r"},
    {"GraceNotesAtTheEndStay", "h:r h:c4", "h:e4 gs:f4 q:g4 q:a4", "h:e4 h:c4",
     "h:r gs:f4 q:g4 q:a4"},
    {"MissingTimeCountsAsRest", "h:c4", "q:e4 q:f4 q:g4 q:a4", "h:c4 q:g4 q:a4",
     "q:e4 q:f4 q:r q:r"},
    {"RestsBeforeMissingTimeAreOneRun", "q:r", "w:c4", "w:c4", "w:r"},
    {"VoiceTwoBeforeMissingTime", "h:c5 v2{q:a4 q:g4}", "h:e5 h:f5", "h:c5,e5 v2{q:a4 q:g4} h:f5",
     "h:r h:r"},
    {"RestsReplaceRestsToo", "q:c4 h.:r", "q:r q:r h:r", "q:c4 q:r h:r", "q:r q:r h:r"},
    {"HiddenOnesDoNot", "q:c4 h.:r", "q:r q:x h:r", "q:c4 h.:r", "q:r q:x h:r"},
    {"WholeTupletsForWholeTuplets", "(3:2 e:r e:r e:r) h.:c4", "(3:2 e:d4 e:e4 e:f4) h.:g4",
     "(3:2 e:d4 e:e4 e:f4) h.:c4,g4", "(3:2 e:r e:r e:r) h.:r"},
    {"PlainNotesForATuplet", "(3:2 e:r e:r e:r) h.:c4", "e:d4 e:e4 h.:g4", "e:d4 e:e4 h.:c4,g4",
     "e:r e:r h.:r"},
    {"ATupletForAPlainRest", "q:r h.:c4", "(3:2 e:d4 e:e4 e:f4) h.:g4",
     "(3:2 e:d4 e:e4 e:f4) h.:c4,g4", "(3:2 e:r e:r e:r) h.:r"},
    {"PartOfATupletInTheSamePartOfItsLike", "(3:2 e:c4 e:r e:r) h.:c4",
     "(3:2 e:d4 e:e4 e:f4) h.:g4", "(3:2 e:c4,d4 e:e4 e:f4) h.:c4,g4", "(3:2 e:r e:r e:r) h.:r"},
    {"NestedTuplets", "h:r h:c4", "(3:2 q:d4 (3:2 e:e4 e:f4 e:g4) q:a4) h:b4",
     "(3:2 q:d4 (3:2 e:e4 e:f4 e:g4) q:a4) h:c4,b4", "(3:2 q:r (3:2 e:r e:r e:r) q:r) h:r"},
    {"NoPartOfATupletForPlainNotes", "(3:2q q.:r q.:c4) h:r", "q:e4 q:g4 h:f4",
     "(3:2q q.:r q.:c4) h:f4", "q:e4 q:g4 h:r"},
    // Both runs last a quarter, but in different tuplets.
    {"NoPartOfADifferentTuplet", "(3:2 q:r q:c4 q:d4) h:c4",
     "(6:4 e:e4 e:f4 e:g4 e:a4 e:b4 e:c5) h:r", "(3:2 q:r q:c4 q:d4) h:c4",
     "(6:4 e:e4 e:f4 e:g4 e:a4 e:b4 e:c5) h:r"},
};

// If the destination ends earlier, rests fill it up to the start of the selection.
constexpr MergeCase kPartOfAMeasure[] = {
    {"SkeletonThenTheSecondHalf", "", "q:c4 q:d4 q:e4 q:f4", "q:r q:r q:e4 q:f4",
     "q:c4 q:d4 q:r q:r", 2048},
    {"SkeletonOfOneUnit", "", "q:c4 h.:d4", "q:r h.:d4", "q:c4 h.:r", 1},
    {"SkeletonThenTheFirstHalf", "", "q:c4 q:d4 q:e4 q:f4", "q:c4 q:d4 q:r q:r",
     "q:r q:r q:e4 q:f4", 0, 2047},
    {"SkeletonWithTuplets", "", "h:c4 q:d4 (3:2 e:e4 e:f4 e:g4)", "h:r q:d4 (3:2 e:e4 e:f4 e:g4)",
     "h:c4 q:r (3:2 e:r e:r e:r)", 2048},
    {"OneNoteThatBeginsInside", "", "w:c4", "w:c4", "w:r", 0, 2047},
    {"AllButTheLastUnit", "", "q:c4 q:d4 h:e4", "q:c4 q:d4 h:e4", "q:r q:r h:r", 0, 4094},
    {"SkeletonEndingInATupletOfOne", "", "h:c4 q:d4 (2:1 h:e4)", "h:r q:d4 (2:1 h:e4)",
     "h:c4 q:r (2:1 h:r)", 2048},
    {"SkeletonWithoutGraceNotes", "", "gs:c4 h:d4 gs:e4 h:f4", "h:r gs:e4 h:f4", "gs:c4 h:d4 h:r",
     2048},
    {"RestsOutsideStay", "q:r q:r q:r q:r", "q:c4 q:d4 q:e4 q:f4", "q:r q:d4 q:e4 q:r",
     "q:c4 q:r q:r q:f4", 1024, 3071},
    {"MissingTimeInsideOnly", "q:c4", "q:d4 q:e4 q:f4 q:g4", "q:c4", "q:d4 q:e4 q:f4 q:g4", 2048},
    {"MissingTimeFromTheSelectionOn", "h:c4", "q:d4 q:e4 q:f4 q:g4", "h:c4 q:f4 q:g4",
     "q:d4 q:e4 q:r q:r", 1024},
    {"MissingTimeUpToTheSelectionsEnd", "h:c4", "q:d4 q:e4 q:f4 q:g4", "h:c4 q:f4",
     "q:d4 q:e4 q:r q:g4", 0, 3071},
};

INSTANTIATE_TEST_SUITE_P(Chords, MergeRules, testing::ValuesIn(kChords), kByName);
INSTANTIATE_TEST_SUITE_P(RestFill, MergeRules, testing::ValuesIn(kRestFill), kByName);
INSTANTIATE_TEST_SUITE_P(PartOfAMeasure, MergeRules, testing::ValuesIn(kPartOfAMeasure), kByName);

TEST(Merge, PlacedNotesKeepTheirTieEnds) {
    StandIn host;
    host.Write({"w:r", "h:~c4,e4,~g4 h:~d4"});
    App().faults.untiesNewEntries = true;
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 1, 0), "h:~c4,e4,~g4 h:~d4");
}

TEST(Merge, ShapesOfRestsGoToWhatReplacesThem) {
    StandIn host;
    host.Write({"h:c4 h:r", "h:r h:d4"});
    host.Slur({1, 1, 0, 0}, {1, 1, 0, 1});
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 1, 0), "h:c4 h:d4");
    EXPECT_EQ(
        host.Score().Records().CountOfEntry(Tag::kShapeOnEntry, host.EntryNumber({1, 1, 0, 1})), 1);
}

// Three quarters are not a whole rest's time, whatever the next measure begins with.
TEST(Merge, MusicFillsItsOwnMeasureOnly) {
    StandIn host{1, 2};
    host.LayerEverywhere(0, "w:r");
    host.Layer(1, 1, 1, "h.:c4");
    host.Layer(1, 2, 1, "w:d4");
    host.SelectAll();
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 1, 0) + " | " + host.Layer(1, 2, 0), "w:r | w:d4");
}

// A wholly selected measure takes the music at once, without rests for it to replace.
TEST(Merge, MakesRestsOnlyInPartlySelectedMeasures) {
    const std::tuple<i32, std::size_t, std::size_t> cases[] = {
        {kEndOfMeasure, 1, 1}, {4095, 1, 1}, {4094, 2, 2}};
    for (const auto& [last, inserted, reduced] : cases) {
        StandIn host;
        host.Layer(1, 1, 1, "w:c4");
        host.Select(1, 1, 0, 1, 1, last);
        App().ResetCounts();
        Plugin{}.Merge(host);
        EXPECT_EQ(host.Layer(1, 1, 0), "w:c4") << last;
        EXPECT_EQ(App().calls.Of(HostCall::kInsertEXENTRY), inserted) << last;
        EXPECT_EQ(App().calls.Of(HostCall::kReduceEntries), reduced) << last;
    }
}

TEST(Merge, HidesRestsOnRequest) {
    StandIn host;
    host.Layer(1, 1, 1, "h:c4 h:d4");
    host.Select(1, 1, 2048, 1, 1, kEndOfMeasure);
    Plugin{}.Merge(host, {.hideAddedRests = 1});
    EXPECT_EQ(host.Layer(1, 1, 0), "h:x h:d4");
    EXPECT_EQ(host.Layer(1, 1, 1), "h:c4 h:x");
    EXPECT_NE(host.Entry({1, 1, 1, 1}).flags & EntryFlag::kMadeRest, 0U);
}

TEST(Merge, SecondRunChangesNothing) {
    StandIn host;
    host.Write({"q:c4 q:r h:r", "q:e4 q:f4 h:g4"});
    Plugin{}.Merge(host);
    const u64 digest = host.Score().Digest();
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Score().Digest(), digest);
}

TEST(ChordRegion, IncludesBothEnds) {
    StandIn host{1, 3};
    host.LayerEverywhere(0, "q:c4 q:c4 q:c4 q:c4");
    host.LayerEverywhere(1, "q:e4 q:e4 q:e4 q:e4");
    host.Select(1, 1, 1024, 1, 3, 2048);
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 1, 0), "q:c4 q:c4,e4 q:c4,e4 q:c4,e4");
    EXPECT_EQ(host.Layer(1, 2, 0), "q:c4,e4 q:c4,e4 q:c4,e4 q:c4,e4");
    EXPECT_EQ(host.Layer(1, 3, 0), "q:c4,e4 q:c4,e4 q:c4,e4 q:c4");
    EXPECT_EQ(host.Layer(1, 3, 1), "q:r q:r q:r q:e4");
}

TEST(ChordRegion, ScalesIndependentTime) {
    // Twice as many units in the staff as in the measure: positions are scaled to compare.
    StandIn host;
    host.Score().SetMeasureDuration(host.Staff(1), 1, 8192);
    host.Write({"h:c4 q:d4", "h:e4 q:f4 q:g4 w:a4"});
    host.Select(1, 1, 0, 1, 1, 2047);
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 1, 0), "h:c4,e4 q:d4,f4 q:g4");
}

TEST(Layers, AllMoveInOrder) {
    StandIn host;
    host.Write({"w:c4", "w:d4", "w:e4", "w:f4"});
    Plugin{}.Merge(host, {.destination = 1});
    EXPECT_EQ(host.Layer(1, 1, 1), "w:d4,c4,e4,f4");
    EXPECT_EQ(host.Layer(1, 1, 0), "w:r");
    Plugin{}.Merge(host, {.source = 4});
    EXPECT_EQ(App().alerts.size(), 1U) << "the layer does not exist";
}

// Two equal pitches have different noteheads, which must not end up on one note.
TEST(Details, EqualPitchesKeepTheirDetails) {
    constexpr u32 kNotehead = HostTag("E\002cn");
    constexpr EntryPlace kDestination{1, 1, 0, 0};
    StandIn host;
    host.Write({"w:c5", "w:c5"});
    host.Attach(kDestination, kNotehead, {"\1\0x", 3});
    host.Attach({1, 1, 1, 0}, kNotehead, {"\1\0o", 3});
    Plugin{}.Merge(host);
    ASSERT_EQ(host.Layer(1, 1, 0), "w:c5,c5");
    const EXENTRY chord = host.Entry(kDestination);
    EXPECT_NE(chord.notes[0].noteID, chord.notes[1].noteID);
    const std::string heads = host.Attached(kDestination, kNotehead);
    for (const auto& [note, head] : {std::pair{0, 'x'}, {1, 'o'}}) {
        const char ofNote[] = {static_cast<char>(chord.notes[note].noteID), '\0', head};
        EXPECT_NE(heads.find(std::string_view{ofNote, 3}), heads.npos) << head;
    }
}

MyExpressionAssign ExpressionOf(StandIn& host, u16 record) {
    return FromBytes<MyExpressionAssign>(
        *host.Score().Records().Find(Tag::kExpression, RecordKey::Other(1, record)));
}

// A host that computes the times of tuplets differently from the writer of the score.
TEST(Times, LongTupletMayBeRoundedAgain) {
    StandIn host;
    host.Write({"w:r", "(7:4 e:c4 e:d4 e:e4 e:f4 e:g4 e:a4 e:b4) h:c5"});
    const Mannered mannered{&Manners::rounding};
    Plugin{}.Merge(host);
    EXPECT_EQ(AlertTexts(), "");
    EXPECT_EQ(host.Layer(1, 1, 0), "(7:4 e:c4 e:d4 e:e4 e:f4 e:g4 e:a4 e:b4) h:c5");
}

// The lower source note comes after the higher one, and a note of the chord has its pitch.
TEST(Sorting, NotesKeepTheirDetails) {
    for (const char* destination : {"w:c4,e4", "w:r"}) {
        StandIn host;
        const Mannered mannered{&Manners::sorting};
        host.Write({destination, "w:g4,~c4,c4"});
        const EXENTRY source = host.Entry({1, 1, 1, 0});
        const std::string id{reinterpret_cast<const char*>(&source.notes[2].noteID), sizeof(u16)};
        host.Attach({1, 1, 1, 0}, HostTag("E\002cn"), id + "head");
        const DocumentContent before = host.Score().Content();
        Plugin{}.Merge(host);
        EXPECT_EQ(AlertTexts(), "");
        EXPECT_EQ(Lines(FaultsOfMerge(host.Score(), before, host.Score().Content(), {})), "");
        EXPECT_NE(host.Attached({1, 1, 0, 0}, HostTag("E\002cn")), "");
    }
}

TEST(Expressions, FollowTheirMusic) {
    StandIn host;
    host.Write({"q:c4 q:r h:d4", "q:e4 q:f4 q:g4 q:a4"});
    // Layers count from 1; 0 is no particular layer.
    const std::tuple<i32, i16, u16> cases[] = {
        {0, 2, 1}, {1024, 2, 1}, {3072, 2, 2}, {0, 0, 0}, {0, 3, 3}};
    for (const auto& [position, layer, afterwards] : cases) {
        host.Expression(1, 1, position, static_cast<i16>(layer - 1));
    }
    Plugin{}.Merge(host);
    for (u16 record = 0; const auto& [position, layer, afterwards] : cases) {
        EXPECT_EQ(ExpressionOf(host, record++).layer, afterwards) << position;
    }
}

// The rest begins inside and is filled as a whole.
TEST(Expressions, AreFoundAfterGaps) {
    StandIn host;
    host.Write({"h:c4 h:r", "h:e4 h:f4"});
    for (const i32 position : {0, 0, 2048, 2048}) {
        host.Expression(1, 1, position, 1);
    }
    for (const u16 gone : {u16{0}, u16{2}}) {
        host.Score().Records().Delete(Tag::kExpression, RecordKey::Other(1, gone),
                                      RecordStore::After::kGap);
    }
    Plugin{}.Merge(host);
    EXPECT_TRUE(App().alerts.empty()) << AlertTexts();
    EXPECT_EQ(ExpressionOf(host, 1).layer, 1);
    EXPECT_EQ(ExpressionOf(host, 3).layer, 1);
}

TEST(Expressions, BeyondTheSelectionStay) {
    StandIn host;
    host.Write({"w:r", "h:c4 h:d4"});
    host.Expression(1, 1, 0, 1);
    host.Expression(1, 1, 2048, 1);
    host.Select(1, 1, 0, 1, 1, 1023);
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 1, 0), "h:c4 h:d4");
    EXPECT_EQ(ExpressionOf(host, 0).layer, 1);
    EXPECT_EQ(ExpressionOf(host, 1).layer, 2);
}

TEST(Expressions, StayWithGraceNote) {
    // Layer (from 0) and grace index afterwards of those of layer 2: of its first grace note, of
    // its second, of the note itself.
    const std::tuple<const char*, const char*, std::vector<std::pair<int, int>>> cases[] = {
        {"ge:c5 q:c4 h.:r", "gs:d5 ge:e5 q:e4 h.:r", {{1, 1}, {0, 1}, {0, 0}}},
        {"ge:c5 q:r h.:r", "gs:d5 ge:e5 q:e4 h.:r", {{0, 2}, {0, 1}, {0, 0}}},
        {"ge:c5 q:r h.:r", "gs:d5 gs:e5 q:e4 h.:r", {{0, 2}, {0, 3}, {0, 0}}},
        {"gs:c5 gs:c5 gs:c5 q:c4 h.:r", "gs:d5 ge:e5 h:e4 h:r", {{0, 1}, {1, 1}, {1, 0}}},
    };
    for (const auto& [destination, source, afterwards] : cases) {
        SCOPED_TRACE(testing::Message() << destination << " / " << source);
        StandIn host;
        host.Write({destination, source});
        for (const i16 graceIndex : {i16{1}, i16{2}, i16{0}}) {
            host.Expression(1, 1, 0, 1, graceIndex);
        }
        Plugin{}.Merge(host);
        for (u16 record = 0; const auto& [layer, graceIndex] : afterwards) {
            const MyExpressionAssign expression = ExpressionOf(host, record++);
            EXPECT_EQ(expression.layer, layer + 1) << graceIndex;
            EXPECT_EQ(expression.graceIndex, graceIndex);
        }
    }
}

// Records have numbers for seven layers, not for an eighth.
TEST(Expressions, NoLayerIsNotTheEighth) {
    StandIn host;
    App().maxLayers = 8;
    host.Layer(1, 1, 7, "w:e4");
    host.Expression(1, 1, 0, -1);
    host.Expression(1, 1, 0, 0);
    host.SelectAll();
    Plugin{}.Merge(host, {.source = 7, .destination = 2});
    EXPECT_EQ(host.Layer(1, 1, 2), "w:e4");
    EXPECT_EQ(ExpressionOf(host, 0).layer, 0);
    EXPECT_EQ(ExpressionOf(host, 1).layer, 1);
    host.Expression(1, 1, 0, 2);
    Plugin{}.Merge(host, {.source = 2, .destination = 7});
    EXPECT_EQ(ExpressionOf(host, 2).layer, 0);
}

}  // namespace
}  // namespace standin
