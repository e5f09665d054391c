// What counts as a difference between two scores, and how it is told.
#include "tests/unit/musicxml_support.h"

namespace standin {
namespace {

const std::string kStaccato = "<notations><articulations><staccato/></articulations></notations>";
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

const struct {
    const char* name;
    std::string before;  // one measure
    std::string after;
    const char* exact;   // lines, without "staff 1, measure 1, beat "
    const char* merged;  // when the second is taken for a merge of the first; null = the same
} kDifferences[] = {
    {"NoteLost", Note({}) + Note({.pitch = "E4"}), Note({}) + Note({.pitch = "r"}),
     "2: E4 quarter lost\n2: quarter rest added\n", "2: E4 quarter lost\n"},
    {"OtherLength", Note({.duration = 3, .more = "<dot/>"}), Note({}),
     "1: C4 dotted quarter lost\n1: C4 quarter added\n", nullptr},
    {"TieLost", Note({.more = kTie}), Note({}),
     "1: tied C4 quarter lost\n1: <tied type=\"start\"/> of C4 quarter lost\n"
     "1: C4 quarter added\n",
     nullptr},
    {"LayersAndChordsAreOfNoAccount", Note({}) + kSecondE, Note({}) + kChordE, "", nullptr},
    {"ArticulationOfAJoinedChordMayBeOne", Note({.more = kStaccato}) + kSecondEStaccato,
     Note({.more = kStaccato}) + kChordE, "1: <staccato/> lost\n", ""},
    {"ArticulationOnTheWrongOfTwoNotes", Note({.more = kStaccato}) + kSecondE,
     Note({}) + kSecondEStaccato, "", "1: C4 quarter parted from what belongs to it\n"},
    {"SlurEndsElsewhere", SlurNote("start") + SlurNote("stop") + Note({}),
     SlurNote("start") + Note({}) + SlurNote("stop"),
     "1: <slur type=\"start\"/> lost\n1: <slur type=\"start\"/> added\n"
     "2: <slur type=\"stop\"/> lost\n3: <slur type=\"stop\"/> added\n",
     "1: C4 quarter parted from what belongs to it\n2: C4 quarter parted from what belongs to it\n"
     "1: <slur type=\"start\"/> lost\n2: <slur type=\"stop\"/> lost\n"
     "1: <slur type=\"start\"/> added\n3: <slur type=\"stop\"/> added\n"},
    {"SlurFromARestLost", Note({.pitch = "r", .more = kSlurStart}) + SlurNote("stop"),
     Note({.pitch = "r"}) + SlurNote("stop"),
     "1: <slur type=\"start\"/> lost\n2: <slur type=\"stop\"/> lost\n"
     "2: <slur type=\"stop\"/> added\n",
     nullptr},
    {"OnceOfTwoRestsIsNotEnough",
     Note({.pitch = "r", .more = kStaccato}) + Backup(2) +
         Note({.pitch = "r", .voice = "2", .more = kStaccato}),
     Note({.pitch = "r", .more = kStaccato}) + Backup(2) + Note({.pitch = "r", .voice = "2"}),
     "1: <staccato/> lost\n", nullptr},
    {"LyricOfARestOnANote", Note({.pitch = "r", .more = kLyric}) + kSecondE,
     Note({.pitch = "r"}) + Backup(2) + Note({.pitch = "E4", .voice = "2", .more = kLyric}),
     "1: <lyric><text>a</text></lyric> lost\n1: <lyric><text>a</text></lyric> added\n", nullptr},
    {"SlursNumberDoesNotCount", SlurNote("start") + SlurNote("stop"),
     SlurNote("start", "2") + SlurNote("stop", "2"), "", nullptr},
    {"DirectionLost", kTempo + Note({}), Note({}),
     "part 1, measure 1: <direction><sound tempo=\"60\"/></direction> lost\n", nullptr},
    {"LongTextIsCutBetweenCharacters",
     Note({.more = "<lyric><text>éééééééééééééééééééééééé</text></lyric>"}), Note({}),
     "1: <lyric><text>ééééééééééééééééééééééé... lost\n",
     "1: <lyric><text>ééééééééééééééééééééééé... lost\n"
     "1: C4 quarter parted from what belongs to it\n"},
    {"SpaceBetweenTagsDoesNotCount", Note({.more = kStaccato}),
     Note({.more = "<notations>\n <articulations>\n  <staccato />\n </articulations></notations>"}),
     "", nullptr},
};

TEST(Difference, IsToldInWords) {
    const auto told = [](std::string lines) {
        const std::string_view beat = "staff 1, measure 1, beat ";
        for (auto at = lines.find(beat); at != lines.npos; at = lines.find(beat)) {
            lines.erase(at, beat.size());
        }
        return lines;
    };
    for (const auto& c : kDifferences) {
        SCOPED_TRACE(c.name);
        const auto before = Read(ScoreText({c.before}));
        const auto after = Read(ScoreText({c.after}));
        EXPECT_EQ(told(Differences(*before, *after)), c.exact);
        EXPECT_EQ(told(Differences(*before, *after, Merged())),
                  c.merged == nullptr ? c.exact : c.merged);
    }
}

TEST(Replaced, ExceptsOnlyTheClearedLayerWithinTheSelection) {
    const auto before = Read(ScoreText({Note({}) + kSecondE}));
    const auto after = Read(ScoreText({Note({.pitch = "E4"})}));
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
