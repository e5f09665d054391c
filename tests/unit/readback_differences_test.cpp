// Differences between two scores, and their wording.
#include <tuple>

#include "host/texts/texts.h"
#include "tests/unit/readback_support.h"
#include "tests/unit/support/named_cases.h"

namespace standin {
namespace {

const std::string kTie = "<notations><tied type=\"start\"/></notations>";
const std::string kLyric = "<lyric><text>a</text></lyric>";
const std::string kSlurStart = "<notations><slur type=\"start\"/></notations>";
const std::string kTempo = "<direction><sound tempo=\"60\"/></direction>";
const std::string kSecondE = Backup(2) + Note({.pitch = "E4", .voice = "2"});
const std::string kSecondEStaccato =
    Backup(2) + Note({.pitch = "E4", .voice = "2", .more = kStaccato});
const std::string kChordE = Note({.pitch = "E4", .first = "<chord/>"});

std::string SlurNote(const std::string& type, const std::string& number = "1") {
    return Note(
        {.more = "<notations><slur type=\"" + type + "\" number=\"" + number + "\"/></notations>"});
}

struct DifferenceCase {
    const char* name;
    std::string before;  // one measure
    std::string after;
    const char* exact;   // lines, without "m. 1, staff 1, beat "
    const char* merged;  // if the second is compared as a merge of the first; null = the same

    friend void PrintTo(const DifferenceCase& row, std::ostream* out) { *out << row.name; }
};

const DifferenceCase kDifferences[] = {
    {"NoteLost", Note({}) + Note({.pitch = "E4"}), Note({}) + Note({.pitch = "r"}),
     "2: E4 quarter lost\n2: quarter rest gained\n", "2: E4 quarter lost\n"},
    {"OtherLength", Note({.duration = 3, .more = "<dot/>"}), Note({}),
     "1: C4 dotted quarter lost\n1: C4 quarter gained\n", nullptr},
    {"TieLost", Note({.more = kTie}), Note({}), "1: tied (type start) of C4 quarter lost\n",
     nullptr},
    {"VoicesAndChordsDoNotCount", Note({}) + kSecondE, Note({}) + kChordE, "", nullptr},
    {"ArticulationOfAJoinedChordMayBeOne", Note({.more = kStaccato}) + kSecondEStaccato,
     Note({.more = kStaccato}) + kChordE, "1: staccato of E4 quarter lost\n", ""},
    {"ArticulationOnTheWrongOfTwoNotes", Note({.more = kStaccato}) + kSecondE,
     Note({}) + kSecondEStaccato, "",
     "1: staccato of C4 quarter lost\n1: staccato of E4 quarter gained\n"},
    {"SlurEndsElsewhere", SlurNote("start") + SlurNote("stop") + Note({}),
     SlurNote("start") + Note({}) + SlurNote("stop"),
     "1: slur from C4 quarter to C4 quarter in m. 1, beat 2 lost\n"
     "1: slur from C4 quarter to C4 quarter in m. 1, beat 3 gained\n",
     nullptr},
    {"SlurFromARestLost", Note({.pitch = "r", .more = kSlurStart}) + SlurNote("stop"),
     Note({.pitch = "r"}) + SlurNote("stop"),
     "1: slur from quarter rest to C4 quarter in m. 1, beat 2 lost: "
     "its ends do not match\n",
     nullptr},
    {"LyricOfARestOnANote", Note({.pitch = "r", .more = kLyric}) + kSecondE,
     Note({.pitch = "r"}) + Backup(2) + Note({.pitch = "E4", .voice = "2", .more = kLyric}), "",
     "1: lyric: text \"a\" of E4 quarter gained\n"
     "1: lyric: text \"a\" of a rest lost\n"},
    {"OnceOfTwoRestsIsNotEnough",
     Note({.pitch = "r", .more = kStaccato}) + Backup(2) +
         Note({.pitch = "r", .voice = "2", .more = kStaccato}),
     Note({.pitch = "r", .more = kStaccato}) + Backup(2) + Note({.pitch = "r", .voice = "2"}),
     "1: staccato of quarter rest lost\n", "1: staccato of a rest lost\n"},
    {"SlursNumberDoesNotCount", SlurNote("start") + SlurNote("stop"),
     SlurNote("start", "2") + SlurNote("stop", "2"), "", nullptr},
    {"DirectionLost", kTempo + Note({}), Note({}), "1: sound (tempo 60) lost\n", nullptr},
    {"DirectionByOffset", Note({}) + kTempo + Note({}),
     "<direction><offset>2</offset><sound tempo=\"60\"/><voice>1</voice></direction>" + Note({}) +
         Note({}),
     "", nullptr},
    {"ClefLost", "<attributes><clef><sign>F</sign></clef></attributes>" + Note({}), Note({}),
     "m. 1, part 1: clef: sign \"F\" lost\n", nullptr},
    {"BeamsAndStemsAreLook", Note({.more = "<stem>up</stem><beam>begin</beam>"}),
     Note({.more = "<stem>down</stem>"}),
     "1: beam \"begin\" of C4 quarter lost\n1: stem \"down\" of C4 quarter gained\n"
     "1: stem \"up\" of C4 quarter lost\n",
     ""},
    {"LongTextIsCutBetweenCharacters",
     Note({.more = "<lyric><text>éééééééééééééééééééééééé</text></lyric>"}), Note({}),
     "1: lyric: text \"ééééééééééééééééééééééé...\" of C4 quarter lost\n", nullptr},
    {"SpaceAndOrderOfAttributesDoNotCount", Note({.more = kStaccato, .first = "<?a b?><!-- -->"}),
     Note({.more = "<notations>\n <articulations>\n  <staccato />\n </articulations></notations>"}),
     "", nullptr},
    {"DivisionsDoNotCount", Note({}) + Note({}),
     "<attributes><divisions>4</divisions></attributes>" + Note({.duration = 4}) +
         Note({.duration = 4}),
     "", nullptr},
};

class ScoreDifference : public testing::TestWithParam<DifferenceCase> {};

TEST_P(ScoreDifference, IsDescribed) {
    const DifferenceCase& c = GetParam();
    const Compared compared{ScoreText({c.before}), ScoreText({c.after})};
    EXPECT_EQ(Sorted(compared.Differences()), Sorted(c.exact));
    EXPECT_EQ(Sorted(compared.Faults()), Sorted(c.merged == nullptr ? c.exact : c.merged));
}

INSTANTIATE_TEST_SUITE_P(Cases, ScoreDifference, testing::ValuesIn(kDifferences), kByName);

TEST(Difference, NamesMeasureAndBeat) {
    const std::string compound =
        "<attributes><time><beats>6</beats><beat-type>8</beat-type></time></attributes>";
    const auto score = [&](std::string_view pitch) {
        std::string text =
            ScoreText({Note({}), compound + Note({.duration = 3, .more = "<dot/>"}) +
                                     Note({pitch, 1, "eighth"}) + Note({.duration = 2})});
        const std::string_view number = "number=\"2\"";
        return text.replace(text.find(number), number.size(), "number=\"17a\"");
    };
    EXPECT_EQ(
        Compared(score("D4"), score("E4")).Differences(),
        "m. 17a, staff 1, beat 2: D4 eighth lost\nm. 17a, staff 1, beat 2: E4 eighth gained\n");
}

// What a program gets: the place in numbers, apart from the words.
TEST(Difference, KnowsItsKindAndPlace) {
    readback::Texts texts;
    const auto before =
        readback::ReadContentOfText(ScoreText({Note({}), Note({}) + kTempo}), texts);
    const auto after =
        readback::ReadContentOfText(ScoreText({Note({}) + Note({.pitch = "G4"}), Note({})}), texts);
    const auto all = readback::Differences(*before.score, *after.score, texts);
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].kind, readback::Difference::Kind::kGained);
    EXPECT_EQ(all[1].kind, readback::Difference::Kind::kLost);
    EXPECT_EQ(all[0].what, "G4 quarter gained");
    EXPECT_EQ((std::tuple{all[0].part, all[0].measure, all[0].staff, all[0].beat}),
              (std::tuple{1U, 1U, 1U, std::optional{2.0}}));
    EXPECT_EQ((std::pair{all[1].measure, all[1].number}), (std::pair{2U, std::string{"2"}}));
}

TEST(Difference, IsInTheUsersLanguage) {
    SetLanguage(Language::kSpanish);
    const Compared compared{ScoreText({Note({.duration = 3, .more = "<dot/>" + kStaccato})}),
                            ScoreText({Note({.pitch = "r", .duration = 3, .more = "<dot/>"})})};
    const std::string words = compared.Differences();
    SetLanguage(Language::kEnglish);
    EXPECT_EQ(Sorted(words),
              "c. 1, pentagrama 1, tiempo 1: falta C4 negra con puntillo\n"
              "c. 1, pentagrama 1, tiempo 1: falta staccato de C4 negra con puntillo\n"
              "c. 1, pentagrama 1, tiempo 1: sobra silencio de negra con puntillo\n");
}

TEST(Difference, OfWholeScore) {
    const std::string one = ScoreText({Note({})});
    const std::string two = ScoreText({Note({}), Note({})});
    EXPECT_EQ(Compared(one, two).Differences(), "part 1, measures: 1 before, 2 after\n");
    std::string renamed = one;
    renamed.replace(renamed.find("Piano"), 5, "Organ");
    EXPECT_NE(Compared(one, renamed).Faults(), "");
}

}  // namespace
}  // namespace standin
