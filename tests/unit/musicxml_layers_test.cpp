// How voices become layers.
#include "tests/unit/musicxml_support.h"

namespace standin {
namespace {

// The first two layers of a staff and measure, with a bar between them.
std::string Layers(const ImportedScore& score, u16 staff, u16 measure) {
    return Layer(score, staff, measure, 0) + " | " + Layer(score, staff, measure, 1);
}

TEST(Voices, BecomeLayersInOrder) {
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

TEST(Voices, FurtherVoicesTakeFreeLayers) {
    const auto score = Read(ScoreText({Together({"1", "2", "3", "4"}), Together({"1", "5", "6"})}));
    EXPECT_EQ(Layers(*score, 1, 2), "q:c4 | q:c4");
    EXPECT_EQ(Layer(*score, 1, 2, 2), "q:c4");
    const std::string written = Rebuilt(*score);
    EXPECT_NE(written.find("<voice>5</voice>"), std::string::npos);
    EXPECT_NE(written.find("<voice>6</voice>"), std::string::npos);
}

// If no layer is free, a voice shares the layer of a voice that it never overlaps.
TEST(Voices, VoicesWithoutOverlapShareLayer) {
    const std::string text =
        ScoreText({Together({"1", "2", "3", "4"}) + Note({.pitch = "E4", .voice = "5"})});
    const auto score = Read(text);
    EXPECT_EQ(Layer(*score, 1, 1, 0), "q:c4 q:e4");
    EXPECT_EQ(score->parts[0].measures[0].layers, kLayers);
    const std::string written = Rebuilt(*score);
    EXPECT_NE(written.find("<voice>5</voice>"), std::string::npos) << written;
    EXPECT_EQ(Differences(*score, written), "");
}

// A user who names a layer means its own voice, so no other voice may take it.
TEST(Voices, NamedLayersAreReserved) {
    const std::string text = ScoreText({Together({"1", "2", "3", "4"}), Together({"1", "5"}),
                                        Note({.voice = "2"}) + Note({.voice = "5"})});
    const auto score = ReadScore(text, nullptr, OwnLayers{false, true}).score;
    ASSERT_TRUE(score);
    EXPECT_EQ(Layers(*score, 1, 2), "q:c4 | ");
    EXPECT_EQ(Layer(*score, 1, 2, 2), "q:c4");
    EXPECT_EQ(Layers(*score, 1, 3), "q:x q:c4 | q:c4");
    const auto whole = ReadScore(text, nullptr, OwnLayers{true, true, true, true}).score;
    ASSERT_TRUE(whole);
    EXPECT_EQ(Layers(*whole, 1, 3), " | q:c4");
    EXPECT_EQ(Layer(*whole, 1, 3, kLayers), "q:x q:c4");
}

// Its elements stay unchanged, whatever happens to the others.
TEST(Voices, FifthVoiceIsCarried) {
    const std::string odd =
        "<note ><pitch ><step>E</step><octave>4</octave></pitch><duration>1</duration>"
        "<voice>5</voice><type>eighth</type><notations><tied type='start'/></notations></note>";
    const std::string chord =
        "<note><pitch><step>F</step><octave>4</octave></pitch><duration>1</duration>"
        "<voice>5</voice></note>\n  <note><chord/><pitch><step>A</step><octave>4</octave></pitch>"
        "<duration>1</duration><voice>5</voice></note>";
    const auto score = Read(
        ScoreText({Together({"1", "2", "3", "4"}) + Backup(2) + odd + "\n" + chord + Note({})}));
    EXPECT_EQ(Layer(*score, 1, 1, kLayers), "e:e4~ e:f4,a4");
    score->document->PutFrame({1, 1, 1}, {});
    const std::string written = WriteScore(*score);
    EXPECT_NE(written.find(odd + "\n" + chord), std::string::npos) << written;
    EXPECT_EQ(FaultsOfMerge(*score, written), "m. 1, staff 1, beat 1: C4 quarter lost\n");
}

// A chord over two entries cannot be cut out of the text.
TEST(Voices, CarriedChordLosesNothing) {
    std::string chord = Note({.voice = "5"});
    for (const char* pitch : {"E4", "G4"}) {
        chord += Note({.pitch = pitch, .duration = 4, .voice = "5", .first = "<chord/>"});
    }
    const auto score = Read(ScoreText({Together({"1", "2", "3", "4"}) + Backup(2) + chord}));
    EXPECT_EQ(score->parts[0].measures[0].layers, kLayers + 2);
    EXPECT_EQ(Differences(*score, Rebuilt(*score)), "");
}

// Two overlapping lines of one voice: the second needs its own layer, or voice 2 if none is free.
TEST(Voices, SecondLineTakesFreeLayerOrVoice2) {
    const std::string lines = Note({}) + Note({}) + Backup(2) + Note({.pitch = "G4"});
    EXPECT_EQ(Layers(*Read(ScoreText({lines})), 1, 1), "q:c4 q:c4 | q:x q:g4");
    const auto full = Read(ScoreText({lines + Backup(2) + Together({"2", "3", "4"})}));
    EXPECT_EQ(Layer(*full, 1, 1, 0), "q:c4 q:c4 v2{q:g4}");
}

TEST(Voices, ChordOfMoreThanTwelveNotesLosesNone) {
    std::string chord;
    for (int i = 0; i < 14; ++i) {
        const std::string pitch{"CDEFGAB"[i % 7], static_cast<char>('3' + i / 7)};
        chord += Note({.pitch = pitch, .first = i > 0 ? "<chord/>" : ""});
    }
    const auto score = Read(ScoreText({chord}));
    EXPECT_EQ(Differences(*score, Rebuilt(*score)), "");
}

// A voice that crosses to the other staff, once with a whole entry and once within a chord.
TEST(Voices, CrossStaffNotesAreOnWrittenStaff) {
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

TEST(Voices, GraceNotesBelongToNextNote) {
    const std::string grace =
        Note({.pitch = "D4", .duration = 0, .type = "eighth", .first = "<grace/>"});
    const auto score = Read(ScoreText({Note({}) + grace + Note({.pitch = "E4"}) + grace}));
    EXPECT_EQ(Layer(*score, 1, 1, 0), "q:c4 ge:d4 q:e4 ge:d4");
}

}  // namespace
}  // namespace standin
