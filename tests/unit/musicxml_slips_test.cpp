// Mistakes in a file whose meaning is clear: read as other programs read them, with a warning.
#include "tests/unit/musicxml_support.h"
#include "tests/unit/support/named_cases.h"

namespace standin {
namespace {

std::string Labelled(const char* encoding) {
    std::string text = ScoreText({Note({})});
    return text.replace(text.find("UTF-8"), 5, encoding);
}

std::string Lasting(int duration, const std::string& more = "", const std::string& first = "") {
    return "<note>" + first + "<pitch><step>E</step><octave>4</octave></pitch><duration>" +
           std::to_string(duration) + "</duration>" + more + "</note>\n";
}

struct SlipCase {
    const char* name;
    std::string text;
    const char* layer1;   // of the first measure
    const char* warning;  // a part of it; empty = none
    std::size_t line = 7;

    friend void PrintTo(const SlipCase& row, std::ostream* out) { *out << row.name; }
};

const SlipCase kSlips[] = {
    {"ANoteOfNoLength", ScoreText({Note({}) + Lasting(0, "<type>half</type><dot/>") + Note({})}),
     "q:c4 h.:e4 q:c4", "a <duration> is 0", 8},
    {"AChordsNoteOfNoLength",
     ScoreText({Note({}) + Lasting(0, "<type>quarter</type>", "<chord/>") + Note({})}),
     "q:c4,e4 q:c4", "a <duration> is 0", 8},
    {"OthersKeepTheirTimes",
     ScoreText({Note({.voice = "2"}) + Lasting(0, "<voice>2</voice><type>half</type>") + Backup(2) +
                Note({.pitch = "G4", .voice = "2"})}),
     "q:c4 h:e4", "a <duration> is 0", 8},
    {"AForwardOfNoLength", ScoreText({Forward(0) + Note({})}), "q:c4", "a <forward> of no length"},
    {"BackupsBeforeTheStart", ScoreText({Note({}) + Backup(3) + Backup(9) + Note({.voice = "2"})}),
     "q:c4", "before the measure's start, and counts as far as that (2 times)", 8},
    {"Utf8CalledUtf16", Labelled("UTF-16"), "q:c4", "is read as the UTF-8 that it is", 1},
    {"BlanksBeforeTheDeclaration", "\n " + ScoreText({Note({})}), "q:c4", "blanks before", 1},
    {"NoSlip", ScoreText({Note({})}), "q:c4", ""},
};

class SlipOfFile : public testing::TestWithParam<SlipCase> {};

TEST_P(SlipOfFile, IsReadWithWarning) {
    const SlipCase& c = GetParam();
    const auto score = Read(c.text);
    EXPECT_EQ(Layer(*score, 1, 1, 0), c.layer1);
    const std::vector<ReadWarning>& warnings = score->warnings.All();
    ASSERT_EQ(warnings.size(), *c.warning == '\0' ? 0U : 1U);
    EXPECT_EQ(WriteScore(*score), c.text) << "what nobody changed comes out as it came";
    if (!warnings.empty()) {
        EXPECT_NE(warnings[0].Words().find(c.warning), std::string::npos) << warnings[0].Words();
        EXPECT_EQ(warnings[0].line, c.line);
    }
    EXPECT_EQ(Differences(*score, Rebuilt(*score)), "");
}

INSTANTIATE_TEST_SUITE_P(Cases, SlipOfFile, testing::ValuesIn(kSlips), kByName);

TEST(Slips, TripletNoteWithoutDurationTakesAThird) {
    const auto score = Read(
        ScoreText({Lasting(0,
                           "<type>quarter</type><time-modification><actual-notes>3</actual-notes>"
                           "<normal-notes>2</normal-notes></time-modification>") +
                   Note({})}));
    EXPECT_EQ(+Entries(*score, 1, 0).at(1).elapsedTime, 2 * 1024 / 3 + 1);
}

// Its text would give another time than the following text needs.
TEST(Slips, CarriedNoteWithoutDurationGetsOne) {
    std::string measure = Note({.duration = 4, .type = "half"});
    for (const char* voice : {"2", "3", "4"}) {
        measure += Backup(4) + Note({.duration = 4, .type = "half", .voice = voice});
    }
    measure += Backup(4) + Note({.voice = "5"}) + Lasting(0, "<voice>5</voice><type>eighth</type>");
    const auto score = Read(ScoreText({measure}));
    EXPECT_EQ(Layer(*score, 1, 1, kLayers), "q:c4 e:e4");
    EXPECT_EQ(Rebuilt(*score).find("<duration>0<"), std::string::npos);
}

}  // namespace
}  // namespace standin
