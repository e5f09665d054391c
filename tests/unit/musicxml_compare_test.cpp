// What counts as a difference between two scores, and how it is told.
#include "tests/unit/musicxml_support.h"

namespace standin {
namespace {

struct DifferenceCase {
    const char* name;
    std::string before;  // one measure
    std::string after;
    const char* exact;   // lines
    const char* merged;  // when the second is taken for a merge of the first; null = the same
};

const std::string kStaccato = "<notations><articulations><staccato/></articulations></notations>";

std::string Slur(const char* type, const char* number) {
    return std::string{"<notations><slur type=\""} + type + "\" number=\"" + number +
           "\"/></notations>";
}

const DifferenceCase kDifferences[] = {
    {"NoteLost", Note({}) + Note({.pitch = "E4"}), Note({}) + Note({.pitch = "r"}),
     "staff 1, measure 1, beat 2: E4 quarter lost\n"
     "staff 1, measure 1, beat 2: quarter rest added\n",
     "staff 1, measure 1, beat 2: E4 quarter lost\n"},
    {"NoteDoubled", Note({}), Note({}) + Backup(2) + Note({.voice = "2"}),
     "staff 1, measure 1, beat 1: C4 quarter added\n",
     "staff 1, measure 1, beat 1: C4 quarter added\n"},
    {"OtherLength", Note({.duration = 3, .more = "<dot/>"}), Note({}),
     "staff 1, measure 1, beat 1: C4 dotted quarter lost\n"
     "staff 1, measure 1, beat 1: C4 quarter added\n",
     "staff 1, measure 1, beat 1: C4 dotted quarter lost\n"
     "staff 1, measure 1, beat 1: C4 quarter added\n"},
    {"TieLost", Note({.more = "<notations><tied type=\"start\"/></notations>"}), Note({}),
     "staff 1, measure 1, beat 1: tied C4 quarter lost\n"
     "staff 1, measure 1, beat 1: <tied type=\"start\"/> of C4 quarter lost\n"
     "staff 1, measure 1, beat 1: C4 quarter added\n",
     nullptr},
    {"LayersAndChordsAreOfNoAccount", Note({}) + Backup(2) + Note({.pitch = "E4", .voice = "2"}),
     Note({}) + Note({.pitch = "E4", .first = "<chord/>"}), "", ""},
    {"ArticulationOfAJoinedChordMayBeOne",
     Note({.more = kStaccato}) + Backup(2) + Note({.pitch = "E4", .voice = "2", .more = kStaccato}),
     Note({.more = kStaccato}) + Note({.pitch = "E4", .first = "<chord/>"}),
     "staff 1, measure 1, beat 1: <staccato/> lost\n", ""},
    {"ArticulationOnTheWrongOfTwoNotes",
     Note({.more = kStaccato}) + Backup(2) + Note({.pitch = "E4", .voice = "2"}),
     Note({}) + Backup(2) + Note({.pitch = "E4", .voice = "2", .more = kStaccato}), "",
     "staff 1, measure 1, beat 1: C4 quarter parted from what belongs to it\n"},
    {"SlurEndsElsewhere",
     Note({.more = Slur("start", "1")}) + Note({.more = Slur("stop", "1")}) + Note({}),
     Note({.more = Slur("start", "1")}) + Note({}) + Note({.more = Slur("stop", "1")}),
     "staff 1, measure 1, beat 1: <slur type=\"start\"/> lost\n"
     "staff 1, measure 1, beat 1: <slur type=\"start\"/> added\n"
     "staff 1, measure 1, beat 2: <slur type=\"stop\"/> lost\n"
     "staff 1, measure 1, beat 3: <slur type=\"stop\"/> added\n",
     "staff 1, measure 1, beat 1: <slur type=\"start\"/> lost\n"
     "staff 1, measure 1, beat 1: <slur type=\"start\"/> added\n"
     "staff 1, measure 1, beat 1: C4 quarter parted from what belongs to it\n"
     "staff 1, measure 1, beat 2: <slur type=\"stop\"/> lost\n"
     "staff 1, measure 1, beat 2: C4 quarter parted from what belongs to it\n"
     "staff 1, measure 1, beat 3: <slur type=\"stop\"/> added\n"},
    {"SlursNumberDoesNotCount",
     Note({.more = Slur("start", "1")}) + Note({.more = Slur("stop", "1")}),
     Note({.more = Slur("start", "2")}) + Note({.more = Slur("stop", "2")}), "", ""},
    {"DirectionLost", "<direction><sound tempo=\"60\"/></direction>" + Note({}), Note({}),
     "part 1, measure 1: <direction><sound tempo=\"60\"/></direction> lost\n",
     "part 1, measure 1: <direction><sound tempo=\"60\"/></direction> lost\n"},
    {"SpaceBetweenTagsDoesNotCount", Note({.more = kStaccato}),
     Note({.more = "<notations>\n <articulations>\n  <staccato />\n </articulations></notations>"}),
     "", ""},
};

class Difference : public testing::TestWithParam<DifferenceCase> {};

TEST_P(Difference, IsToldInWords) {
    const DifferenceCase& c = GetParam();
    const auto before = Read(ScoreText({c.before}));
    const auto after = Read(ScoreText({c.after}));
    ASSERT_TRUE(before && after);
    const std::string exact = Differences(*before, *after);
    const std::string merged = Differences(*before, *after, Merged());
    EXPECT_EQ(exact, c.exact);
    EXPECT_EQ(merged, c.merged == nullptr ? c.exact : c.merged);
}
INSTANTIATE_TEST_SUITE_P(Scores, Difference, testing::ValuesIn(kDifferences),
                         [](const auto& c) { return std::string{c.param.name}; });

TEST(Replaced, ExceptsOnlyTheClearedLayerWithinTheSelection) {
    const auto before =
        Read(ScoreText({Note({}) + Backup(2) + Note({.pitch = "E4", .voice = "2"})}));
    const auto after = Read(ScoreText({Note({.pitch = "E4"})}));
    ASSERT_TRUE(before && after);
    const auto withCleared = [&](u16 layer, i32 start) {
        CompareOptions options = Merged();
        options.replaced = ClearedMusic{EREGION{0, 1, 1, start, 0, 1, 1, kEndOfMeasure}, layer};
        return Differences(*before, *after, options);
    };
    const std::string lost = "staff 1, measure 1, beat 1: C4 quarter lost\n";
    EXPECT_EQ(withCleared(0, 0), "");
    EXPECT_EQ(withCleared(0, 1), lost);  // the selection starts after the note
    EXPECT_EQ(withCleared(1, 0), lost + "staff 1, measure 1, beat 1: E4 quarter added\n");
}

}  // namespace
}  // namespace standin
