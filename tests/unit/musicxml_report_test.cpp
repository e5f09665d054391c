// What a merge did, told from the score before and after.
#include "host/musicxml/merge_report.h"
#include "tests/unit/musicxml_support.h"

namespace standin {
namespace {

// Layer 2 gives its first note to a chord, its second fills a rest; a half and a note without a
// rest for it stay.
TEST(Report, TellsWhatMovedAndWhyTheRestStayed) {
    const auto layer2 = [](std::string_view pitch, int duration = 2,
                           std::string_view type = "quarter") {
        return Note({.pitch = pitch, .duration = duration, .type = type, .voice = "2"});
    };
    const auto score = Read(ScoreText({
        Note({}) + Note({.pitch = "r"}) + Note({.pitch = "D4"}) + Backup(6) + layer2("E4") +
            layer2("F4") + layer2("G4", 4, "half"),
        Note({.duration = 4, .type = "half"}) + Backup(4) + Forward(2) + layer2("A4"),
    }));
    Document& document = *score->document;
    std::vector<EXENTRY> destination = Entries(*score, 1, 0);
    std::vector<EXENTRY> source = Entries(*score, 1, 1);
    destination[0].notes[1] = source[0].notes[0];
    destination[0].notes[1].noteID = 2;
    destination[0].noteCount = 2;
    destination[1] = source[1];
    destination[1].entryNumber = document.NewEntryNumber();
    MakeRest(source[0]);
    MakeRest(source[1]);
    document.PutFrame({1, 1, 0}, destination);
    document.PutFrame({1, 1, 1}, source);

    const EREGION all{0, 1, 1, 0, 0, 1, 2, kEndOfMeasure};
    const MergeReport report = ReportMerge(*score, 0, all);
    EXPECT_EQ(report.ChordsFormed(), 1);
    EXPECT_EQ(report.RestsFilled(), 1);
    EXPECT_EQ(report.NotesMoved(), 2);
    ASSERT_EQ(report.measures.size(), 2U);
    ASSERT_EQ(report.measures[0].stayed.size(), 1U);
    EXPECT_EQ(report.measures[0].stayed[0].onset, 2048);
    EXPECT_EQ(report.measures[0].stayed[0].reason, Stay::kOtherDuration);
    ASSERT_EQ(report.measures[1].stayed.size(), 1U);
    EXPECT_EQ(report.measures[1].stayed[0].reason, Stay::kNoRestToFill);

    const EREGION first{0, 1, 1, 0, 0, 1, 1, kEndOfMeasure};
    EXPECT_EQ(ReportMerge(*score, 0, first).Stayed(), 1);

    const std::vector<StaffMeasureContent> contents = ContentOf(*score);
    ASSERT_EQ(contents.size(), 2U);
    EXPECT_EQ(contents[0].LayersWithMusic(), 2);
    EXPECT_EQ(contents[0].layers[0].notes, 4);
    EXPECT_EQ(contents[0].layers[1].visibleRests, 2);
    EXPECT_EQ(contents[1].layers[1].hiddenRests, 1);
}

}  // namespace
}  // namespace standin
