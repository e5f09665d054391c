// How voices become layers.
#include "tests/unit/musicxml_support.h"

namespace standin {
namespace {

TEST(Voices, BecomeLayersInOrderOfFirstAppearance) {
    const auto score = Read(ScoreText({
        Note({.voice = "3"}) + Backup(2) + Note({.pitch = "E4", .voice = "1"}),
        Note({.voice = "1"}) + Backup(2) + Note({.pitch = "E4", .voice = "3"}),
    }));
    ASSERT_NE(score, nullptr);
    EXPECT_EQ(Layer(*score, 1, 1, 0), "q:c4");
    EXPECT_EQ(Layer(*score, 1, 1, 1), "q:e4");
    EXPECT_EQ(Layer(*score, 1, 2, 0), "q:e4");
    EXPECT_EQ(Layer(*score, 1, 2, 1), "q:c4");
}

std::string FiveVoices(bool atOnce) {
    std::string first;
    for (const char* voice : {"1", "2", "3", "4"}) {
        first += Note({.voice = voice}) + Backup(2);
    }
    const std::string fifth = Note({.pitch = "G4", .voice = "5"});
    return atOnce ? ScoreText({first + fifth})
                  : ScoreText({first, Note({.voice = "1"}) + Backup(2) + fifth});
}

TEST(Voices, AFifthTakesALayerFreeInItsMeasureAndKeepsItsName) {
    const auto score = Read(FiveVoices(false));
    ASSERT_NE(score, nullptr);
    EXPECT_EQ(Layer(*score, 1, 2, 1), "q:g4");
    const std::string written = WriteScore(*score, {.rebuildAll = true});
    EXPECT_NE(written.find("<voice>5</voice>"), std::string::npos);
}

TEST(Voices, FiveAtOnceAreRefusedByPartStaffAndMeasure) {
    const ReadResult result = ReadScore(FiveVoices(true));
    EXPECT_FALSE(result);
    EXPECT_NE(result.message.find("part P1, staff 1, measure 1: voice 5"), std::string::npos)
        << result.message;
}

// Two lines of one voice that share time: the second needs a layer of its own, and voice 2
// when there is none.
TEST(Voices, ASecondLineGoesToAFreeLayerElseToVoice2) {
    const std::string lines = Note({}) + Note({}) + Backup(2) + Note({.pitch = "G4"});
    const auto free = Read(ScoreText({lines}));
    ASSERT_NE(free, nullptr);
    EXPECT_EQ(Layer(*free, 1, 1, 0), "q:c4 q:c4");
    EXPECT_EQ(Layer(*free, 1, 1, 1), "q:x q:g4");

    std::string others;
    for (const char* voice : {"2", "3", "4"}) {
        others += Backup(2) + Note({.voice = voice});
    }
    const auto full = Read(ScoreText({lines + others}));
    ASSERT_NE(full, nullptr);
    EXPECT_EQ(Layer(*full, 1, 1, 0), "q:c4 q:c4 v2{q:g4}");
}

TEST(Voices, AChordBeyondTwelveNotesLosesNone) {
    std::string chord;
    for (int i = 0; i < 14; ++i) {
        const std::string pitch{"CDEFGAB"[i % 7], static_cast<char>('3' + i / 7)};
        chord += Note({.pitch = pitch, .first = i > 0 ? "<chord/>" : ""});
    }
    const auto score = Read(ScoreText({chord}));
    ASSERT_NE(score, nullptr);
    const auto again = Read(WriteScore(*score, {.rebuildAll = true}));
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(MusicOf(*score).notes.size(), 14U);
    EXPECT_EQ(Differences(*score, *again), "");
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
    ASSERT_NE(score, nullptr);
    EXPECT_EQ(Layer(*score, 1, 1, 0), "q:x q:c5 q:e5");
    EXPECT_EQ(Layer(*score, 2, 1, 0), "q:c3 q:x q:e3");
}

TEST(Voices, GracesGoWithTheNoteTheyLeadTo) {
    const std::string grace =
        Note({.pitch = "D4", .duration = 0, .type = "eighth", .first = "<grace/>"});
    const auto score = Read(ScoreText({Note({}) + grace + Note({.pitch = "E4"}) + grace}));
    ASSERT_NE(score, nullptr);
    EXPECT_EQ(Layer(*score, 1, 1, 0), "q:c4 ge:d4 q:e4 ge:d4");
}

}  // namespace
}  // namespace standin
