// How voices become layers.
#include "tests/unit/musicxml_support.h"

namespace standin {
namespace {

// The first two layers of a staff and measure, with a bar between them.
std::string Layers(const ImportedScore& score, u16 staff, u16 measure) {
    return Layer(score, staff, measure, 0) + " | " + Layer(score, staff, measure, 1);
}

TEST(Voices, BecomeLayersInOrderOfFirstAppearance) {
    const auto score = Read(ScoreText({
        Note({.voice = "3"}) + Backup(2) + Note({.pitch = "E4", .voice = "1"}),
        Note({.voice = "1"}) + Backup(2) + Note({.pitch = "E4", .voice = "3"}),
    }));
    EXPECT_EQ(Layers(*score, 1, 1), "q:c4 | q:e4");
    EXPECT_EQ(Layers(*score, 1, 2), "q:e4 | q:c4");
}

// A note in each of the voices, at the same time.
std::string Together(std::initializer_list<const char*> voices) {
    std::string measure;
    for (const char* voice : voices) {
        measure += (measure.empty() ? "" : Backup(2)) + Note({.voice = voice});
    }
    return measure;
}

TEST(Voices, FurtherOnesTakeLayersFreeInTheirMeasureAndKeepTheirNames) {
    const auto score = Read(ScoreText({Together({"1", "2", "3", "4"}), Together({"1", "5", "6"})}));
    EXPECT_EQ(Layers(*score, 1, 2), "q:c4 | q:c4");
    EXPECT_EQ(Layer(*score, 1, 2, 2), "q:c4");
    const std::string written = Rebuilt(*score);
    EXPECT_NE(written.find("<voice>5</voice>"), std::string::npos);
    EXPECT_NE(written.find("<voice>6</voice>"), std::string::npos);
}

TEST(Voices, FiveAtOnceAreRefusedByPartStaffAndMeasure) {
    const ReadResult result = ReadScore(ScoreText({Together({"1", "2", "3", "4", "5"})}));
    EXPECT_FALSE(result);
    EXPECT_NE(result.message.find("part P1, staff 1, measure 1: voice 5"), std::string::npos)
        << result.message;
}

// Two lines of one voice that share time: the second needs a layer of its own, and voice 2
// when there is none.
TEST(Voices, ASecondLineGoesToAFreeLayerElseToVoice2) {
    const std::string lines = Note({}) + Note({}) + Backup(2) + Note({.pitch = "G4"});
    EXPECT_EQ(Layers(*Read(ScoreText({lines})), 1, 1), "q:c4 q:c4 | q:x q:g4");
    const auto full = Read(ScoreText({lines + Backup(2) + Together({"2", "3", "4"})}));
    EXPECT_EQ(Layer(*full, 1, 1, 0), "q:c4 q:c4 v2{q:g4}");
}

TEST(Voices, AChordBeyondTwelveNotesLosesNone) {
    std::string chord;
    for (int i = 0; i < 14; ++i) {
        const std::string pitch{"CDEFGAB"[i % 7], static_cast<char>('3' + i / 7)};
        chord += Note({.pitch = pitch, .first = i > 0 ? "<chord/>" : ""});
    }
    const auto score = Read(ScoreText({chord}));
    EXPECT_EQ(MusicOf(*score).notes.size(), 14U);
    EXPECT_EQ(Differences(*score, *Read(Rebuilt(*score))), "");
}

// A voice that crosses to the other staff, once with a whole entry and once within a chord.
TEST(Voices, CrossStaffNotesStandOnTheStaffTheyAreWrittenOn) {
    const std::string low = "<staff>2</staff>";
    const std::string high = "<staff>1</staff>";
    const auto score =
        Read(ScoreText({Note({.pitch = "C3", .more = low}) + Note({.pitch = "C5", .more = high}) +
                        Note({.pitch = "E3", .more = low}) +
                        Note({.pitch = "E5", .more = high, .first = "<chord/>"})},
                       "<staves>2</staves>"));
    EXPECT_EQ(Layer(*score, 1, 1, 0), "q:x q:c5 q:e5");
    EXPECT_EQ(Layer(*score, 2, 1, 0), "q:c3 q:x q:e3");
}

TEST(Voices, GracesGoWithTheNoteTheyLeadTo) {
    const std::string grace =
        Note({.pitch = "D4", .duration = 0, .type = "eighth", .first = "<grace/>"});
    const auto score = Read(ScoreText({Note({}) + grace + Note({.pitch = "E4"}) + grace}));
    EXPECT_EQ(Layer(*score, 1, 1, 0), "q:c4 ge:d4 q:e4 ge:d4");
}

}  // namespace
}  // namespace standin
