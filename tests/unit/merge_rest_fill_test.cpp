// Runs of destination rests are filled by source music of exactly their time.
#include "tests/unit/merge_table.h"

namespace standin {
namespace {

constexpr MergeCase kWholeMeasure[] = {
    {"AfterAChord", "q:c4 q:r h:r", "q:e4 q:f4 q:g4 q:a4", "q:c4,e4 q:f4 q:g4 q:a4",
     "q:r q:r q:r q:r"},
    {"NoEntryEndsWithTheRun", "h:r h:c4", "q:e4 h:f4 q:g4", "h:r h:c4", "q:e4 h:f4 q:g4"},
    {"EmptyReceivesEverything", "", "gs:c4 q:d4 v2{e:a3 e:b3} q:r h:f4",
     "gs:c4 q:d4 v2{e:a3 e:b3} q:r h:f4", "q:r v2{e:r e:r} q:r h:r"},
    {"SeveralRuns", "q:r q:c4 q:r q:c4", "q:e4 q:d4 e:f4 e:g4 q:d4",
     "q:e4 q:c4,d4 e:f4 e:g4 q:c4,d4", "q:r q:r e:r e:r q:r"},
    {"LaunchingRestsStay", "h:r v2{q:c4 q:d4} h:r", "h:e4 h:g4", "h:r v2{q:c4 q:d4} h:g4",
     "h:e4 h:r"},
    {"VoiceTwoInsideASpanComesAlong", "h:r h:c4", "h:e5 v2{q:a4 q:g4} h:b4",
     "h:e5 v2{q:a4 q:g4} h:c4,b4", "h:r v2{q:r q:r} h:r"},
    // The first second voice lasts into the time of the one that is there.
    {"SecondVoicesDoNotOverlap", "q:r q:c4 v2{q:a3} h:r", "q:e5 v2{h:a4} h.:b4",
     "q:r q:c4 v2{q:a3} h:r", "q:e5 v2{h:a4} h.:b4"},
    {"GraceNotesAtTheStartComeAlong", "h:c4 h:r", "h:e4 gs:f4 h:g4", "h:c4,e4 gs:f4 h:g4",
     "h:r h:r"},
    {"GraceNotesAtTheEndStay", "h:r h:c4", "h:e4 gs:f4 q:g4 q:a4", "h:e4 h:c4",
     "h:r gs:f4 q:g4 q:a4"},
    {"MissingTimeCountsAsRest", "h:c4", "q:e4 q:f4 q:g4 q:a4", "h:c4 q:g4 q:a4",
     "q:e4 q:f4 q:r q:r"},
    {"RestsAndMissingTimeAreOneRun", "h:c4 q:r", "h:e4 h:g4", "h:c4,e4 h:g4", "h:r h:r"},
    {"VoiceTwoBeforeMissingTime", "h:c5 v2{q:a4 q:g4}", "h:e5 h:f5", "h:c5,e5 v2{q:a4 q:g4} h:f5",
     "h:r h:r"},
    {"TiesKeepBothTheirEnds", "h:r h:r", "h:e4~ h:~e4", "h:e4~ h:~e4", "h:r h:r"},
    {"RestsDoNotReplaceRests", "q:c4 q:r h:r", "q:r q:x h:x", "q:c4 q:r h:r", "q:r q:x h:x"},
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
    // Both runs are a quarter of the time; but of another tuplet than the source's.
    {"NoPartOfADifferentTuplet", "(3:2 q:r q:c4 q:d4) h:c4",
     "(6:4 e:e4 e:f4 e:g4 e:a4 e:b4 e:c5) h:r", "(3:2 q:r q:c4 q:d4) h:c4",
     "(6:4 e:e4 e:f4 e:g4 e:a4 e:b4 e:c5) h:r"},
};

// Of a destination that does not reach as far, rests come first where the selection begins.
constexpr MergeCase kPartOfAMeasure[] = {
    {"SkeletonThenTheSecondHalf", "", "q:c4 q:d4 q:e4 q:f4", "q:r q:r q:e4 q:f4",
     "q:c4 q:d4 q:r q:r", 2048},
    {"SkeletonThenTheFirstHalf", "", "q:c4 q:d4 q:e4 q:f4", "q:c4 q:d4 q:r q:r",
     "q:r q:r q:e4 q:f4", 0, 2047},
    {"SkeletonWithTuplets", "", "h:c4 q:d4 (3:2 e:e4 e:f4 e:g4)", "h:r q:d4 (3:2 e:e4 e:f4 e:g4)",
     "h:c4 q:r (3:2 e:r e:r e:r)", 2048},
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

TEST(RestFill, FillsRunsOfRests) {
    for (const MergeCase& c : kWholeMeasure) {
        ExpectMerge(c);
    }
}

TEST(RestFill, FillsTheSelectedPartOfAMeasure) {
    for (const MergeCase& c : kPartOfAMeasure) {
        ExpectMerge(c);
    }
}

TEST(RestFill, ASecondRunChangesNothing) {
    StandIn host{1, 2};
    host.Layer(1, 1, 0, "q:c4 q:r h:r");
    host.Layer(1, 1, 1, "q:e4 q:f4 h:g4");
    host.Layer(1, 2, 2, "w:a4");
    host.SelectAll();
    const Plugin plugin;
    plugin.Merge(host);
    const u64 digest = host.Score().Digest();
    plugin.Merge(host);
    EXPECT_EQ(host.Score().Digest(), digest);
}

}  // namespace
}  // namespace standin
