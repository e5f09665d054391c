// Faults of a merge, and changes that it may make, in small scores before and after.
#include "tests/unit/readback_support.h"
#include "tests/unit/support/named_cases.h"

namespace standin {
namespace {

std::string Notations(const std::string& inner) {
    return "<notations>" + inner + "</notations>";
}

// An end of a line, such as <slur type="start" number="1"/>.
std::string End(const std::string& line, const std::string& type, const std::string& number = "1") {
    return '<' + line + " type=\"" + type + "\" number=\"" + number + "\"/>";
}

std::string Slur(const std::string& type, const std::string& number = "1") {
    return Notations(End("slur", type, number));
}

std::string Tied(const std::string& type) {
    return "<tie type=\"" + type + "\"/>" + Notations("<tied type=\"" + type + "\"/>");
}

std::string Quarter(std::string_view pitch, std::string_view voice = "1",
                    const std::string& more = {}, std::string_view first = {}) {
    return Note({.pitch = pitch, .voice = voice, .more = more, .first = first});
}

std::string Half(std::string_view pitch, std::string_view voice = "1", const std::string& more = {},
                 std::string_view first = {}) {
    return Note({pitch, 4, "half", voice, more, first});
}

std::string OnStaff2(const std::string& notations = {}) {
    return "<staff>2</staff>" + notations;
}

const std::string kJoins = "<chord/>";
const std::string kSixthsOfQuarter = "<attributes><divisions>6</divisions></attributes>";

// A note of a triplet of eighths, in sixths of a quarter.
std::string Third(std::string_view pitch, std::string_view voice = "1",
                  const std::string& notations = {}) {
    const std::string ratio =
        "<time-modification><actual-notes>3</actual-notes><normal-notes>2</normal-notes>"
        "</time-modification>";
    return Note({pitch, 2, "eighth", voice, ratio + notations});
}

const std::string kTupletStart = Notations("<tuplet type=\"start\"/>");
const std::string kTupletStop = Notations("<tuplet type=\"stop\"/>");

std::string Triplet(std::string_view pitch, std::string_view voice = "1") {
    return Third(pitch, voice, kTupletStart) + Third(pitch, voice) +
           Third(pitch, voice, kTupletStop);
}

std::string Wedge(const std::string& type, const std::string& staff) {
    return "<direction><direction-type><wedge type=\"" + type + "\"/></direction-type><staff>" +
           staff + "</staff></direction>";
}

std::string Lyric(const std::string& number, const std::string& text) {
    return "<lyric number=\"" + number + "\"><text>" + text + "</text></lyric>";
}

const std::string kGlissandoStart = Notations("<glissando type=\"start\"/>");
const std::string kGlissandoStop = Notations("<glissando type=\"stop\"/>");
const std::string kFinger = Notations("<technical><fingering>1</fingering></technical>");
const std::string kGrace = "<grace/>";

std::string Grace(std::string_view pitch, std::string_view voice) {
    return Note({pitch, 0, "16th", voice, {}, kGrace});
}

const std::string kHarmony = "<harmony><root><root-step>C</root-step></root></harmony>";

std::string DirectionOf(const std::string& voice) {
    return "<direction><sound/><voice>" + voice + "</voice></direction>";
}

using Measures = std::vector<std::string>;

struct FaultCase {
    const char* name;
    Measures before;
    Measures after;
    const char* faults;  // without "m. 1, staff 1, beat "

    friend void PrintTo(const FaultCase& row, std::ostream* out) { *out << row.name; }
};

const FaultCase kFaults[] = {
    {"NumberTakenTwice",
     {Half("C5", "1", Slur("start")) + Half("D5", "1", Slur("stop")) + Backup(8) +
      Half("C4", "2", Slur("start")) + Half("D4", "2", Slur("stop"))},
     {Half("C5", "1", Slur("start")) + Backup(4) + Half("C4", "2", Slur("start")) + Backup(4) +
      Forward(4) + Half("D5", "1", Slur("stop")) + Backup(4) + Half("D4", "2", Slur("stop"))},
     "1: slur from C5 half to D5 half in m. 1, beat 3 lost: its number is used twice at once\n"
     "1: slur from C4 half to D4 half in m. 1, beat 3 lost: its number is used twice at once\n"},
    {"NumberTakenTwiceAcrossStaves",
     {Quarter("C3", "5", OnStaff2(Slur("start"))) + Quarter("E4", "5", Slur("stop")) +
      Quarter("D3", "5", OnStaff2(Slur("start"))) + Quarter("F4", "5", Slur("stop"))},
     {Forward(2) + Quarter("E4", "5", Slur("stop")) + Forward(2) +
      Quarter("F4", "5", Slur("stop")) + Backup(8) + Quarter("C3", "5", OnStaff2(Slur("start"))) +
      Forward(2) + Quarter("D3", "5", OnStaff2(Slur("start")))},
     "m. 1, staff 2, beat 1: slur from C3 quarter to E4 quarter in m. 1, beat 2 lost: "
     "its number is used twice at once\n"
     "m. 1, staff 2, beat 3: slur from D3 quarter to F4 quarter in m. 1, beat 4 lost: "
     "its number is used twice at once\n"},
    {"SlursChangeTheirEnds",
     {Half("C5", "1", Slur("start", "1")) + Half("D5", "1", Slur("stop", "1")) + Backup(8) +
      Half("C4", "2", Slur("start", "2")) + Half("D4", "2", Slur("stop", "2"))},
     {Half("C5", "1", Slur("start", "1")) + Half("D5", "1", Slur("stop", "2")) + Backup(8) +
      Half("C4", "2", Slur("start", "2")) + Half("D4", "2", Slur("stop", "1"))},
     "1: slur from C5 half to D5 half in m. 1, beat 3 lost\n"
     "1: slur from C4 half to D4 half in m. 1, beat 3 lost\n"
     "1: slur from C5 half to D4 half in m. 1, beat 3 gained\n"
     "1: slur from C4 half to D5 half in m. 1, beat 3 gained\n"},
    // The second measure is the same text, but its meaning changes.
    {"DivisionsThatAreNotSetBack",
     {Half("C5") + Half("D5"), Half("E5")},
     {kSixthsOfQuarter + Note({"C5", 12, "half"}) + Note({"D5", 12, "half"}), Half("E5")},
     "m. 2, staff 1, beat 1: E5 half lost\n"
     "m. 2, staff 1, beat 1: E5 half gained\n"},
    {"NumberChangedAtOneEndOnly",
     {Half("C5", "1", Slur("start")), Half("D5", "1", Slur("stop")), Half("E5")},
     {Half("C5", "1", Slur("start", "2")), Half("D5", "1", Slur("stop")), Half("E5")},
     "1: slur from C5 half to D5 half in m. 2, beat 1 lost: its ends do not match\n"},
    {"StopBeforeStart",
     {Half("C5", "1", Slur("start")) + Backup(4) + Forward(4) + Half("D5", "2", Slur("stop"))},
     {Forward(4) + Half("D5", "1", Slur("stop")) + Backup(8) + Half("C5", "2", Slur("start"))},
     "1: slur from C5 half to D5 half in m. 1, beat 3: its stop comes before its start\n"},
    {"SlurOnAnotherNote",
     {Half("C5", "1", Slur("start")) + Half("D5", "1", Slur("stop")) + Backup(8) + Half("C4", "2") +
      Half("D4", "2")},
     {Half("C5") + Half("D5") + Backup(8) + Half("C4", "2", Slur("start")) +
      Half("D4", "2", Slur("stop"))},
     "1: slur from C5 half to D5 half in m. 1, beat 3 lost\n"
     "1: slur from C4 half to D4 half in m. 1, beat 3 gained\n"},
    {"GlissandoOnAnotherNoteOfTheChord",
     {Half("A5") + Half("E5") + Backup(8) + Half("B3", "2", kGlissandoStart) +
      Half("F4", "2", kGlissandoStop)},
     {Half("A5", "1", kGlissandoStart) + Half("B3", "1", {}, kJoins) +
      Half("E5", "1", kGlissandoStop) + Half("F4", "1", {}, kJoins)},
     "1: glissando from B3 half to F4 half in m. 1, beat 3 lost\n"
     "1: glissando from A5 half to E5 half in m. 1, beat 3 gained\n"},
    {"HairpinsOfTwoStavesMixed",
     {Wedge("crescendo", "1") + Half("C5") + Wedge("stop", "1") + Half("D5") + Backup(8) +
      Wedge("crescendo", "2") + Half("C3", "5", OnStaff2()) + Wedge("stop", "2") +
      Half("D3", "5", OnStaff2())},
     {Wedge("crescendo", "1") + Wedge("crescendo", "2") + Half("C5") + Wedge("stop", "1") +
      Wedge("stop", "2") + Half("D5") + Backup(8) + Half("C3", "5", OnStaff2()) +
      Half("D3", "5", OnStaff2())},
     "1: wedge to m. 1, beat 3 lost: its number is used twice at once\n"
     "m. 1, staff 2, beat 1: wedge to m. 1, beat 3 lost: its number is used twice at once\n"},
    {"LineOnOneNoteWithTwoNumbers",
     {Half("C5", "1",
           Notations("<ornaments>" + End("wavy-line", "start") + End("wavy-line", "stop") +
                     "</ornaments>"))},
     {Half("C5", "1",
           Notations("<ornaments>" + End("wavy-line", "start", "2") + End("wavy-line", "stop") +
                     "</ornaments>"))},
     "1: wavy-line from C5 half to C5 half in m. 1, beat 1 lost: its ends do not match\n"},
    {"TupletTorn",
     {kSixthsOfQuarter + Triplet("C5")},
     {kSixthsOfQuarter + Third("C5", "1", kTupletStart) + Third("C5", "1", kTupletStop) +
      Third("C5", "2")},
     "1: C5 eighth out of its tuplet\n1.333: C5 eighth out of its tuplet\n"
     "1.667: C5 eighth out of its tuplet\n"},
    {"TupletOverTwoStavesTorn",
     {kSixthsOfQuarter + Third("C5", "1", kTupletStart) + Third("C5", "1", OnStaff2()) +
      Third("C5", "1", kTupletStop)},
     {kSixthsOfQuarter + Third("C5", "1", kTupletStart) + Third("r") +
      Third("C5", "1", kTupletStop) + Backup(4) +
      Third("C5", "2", OnStaff2(Notations("<tuplet type=\"start\"/><tuplet type=\"stop\"/>")))},
     "m. 1, staff 2, beat 1.333: C5 eighth out of its tuplet\n"},
    {"SextupletsRatioReduced",
     {kSixthsOfQuarter + Note({"C5", 2, "eighth", "1",
                               "<time-modification><actual-notes>6</actual-notes><normal-notes>4"
                               "</normal-notes></time-modification>"})},
     {kSixthsOfQuarter + Third("C5")},
     "1: C5 eighth out of its tuplet\n"},
    {"TupletWithoutItsStop",
     {kSixthsOfQuarter + Triplet("C5")},
     {kSixthsOfQuarter + Third("C5", "1", kTupletStart) + Third("C5") + Third("C5")},
     "1: tuplet (type start) of C5 eighth without its other end\n"
     "1: C5 eighth out of its tuplet\n1.333: C5 eighth out of its tuplet\n"
     "1.667: C5 eighth out of its tuplet\n"},
    {"TupletOfOneNoteStopsFirst",
     {Half("C5", "1", Notations(End("tuplet", "start") + End("tuplet", "stop")))},
     {Half("C5", "1", Notations(End("tuplet", "stop") + End("tuplet", "start")))},
     "1: tuplet from C5 half to C5 half in m. 1, beat 1: its stop comes before its start\n"},
    {"BackupWithinATuplet",
     {kSixthsOfQuarter + Triplet("C5")},
     {kSixthsOfQuarter + Third("C5", "1", kTupletStart) + Backup(1) + Forward(1) + Third("C5") +
      Third("C5", "1", kTupletStop)},
     "1: a tuplet with <backup> or <forward> between its notes\n"},
    {"TwoLyricsWithOneNumber",
     {Half("C5", "1", Lyric("1", "la")) + Backup(4) + Half("A4", "2", Lyric("1", "ho"))},
     {Half("C5", "1", Lyric("1", "la") + Lyric("1", "ho")) + Half("A4", "1", {}, kJoins)},
     "1: C5 half has two lyrics with one number\n"},
    {"LyricOfAnotherVerseForNoReason",
     {Half("C5", "1", Lyric("1", "la"))},
     {Half("C5", "1", Lyric("2", "la"))},
     "1: lyric: text \"la\" of C5 half lost\n"},
    {"VoiceSharesTimeWithItself",
     {Half("C5") + Half("D5") + Backup(8) + Quarter("C4", "2")},
     {Half("C5") + Half("D5") + Backup(8) + Quarter("C4", "1")},
     "m. 1, part 1: the durations of a voice add up to more than the measure\n"
     "1: C4 quarter shares time with its own voice\n"
     "1: C5 half shares time with its own voice\n"},
    {"VoiceOnTwoStavesAtOnce",
     {Half("C5") + Backup(4) + Half("C3", "2", OnStaff2())},
     {Half("C5") + Backup(4) + Half("C3", "1", OnStaff2())},
     "1: C5 half is in a voice that is on two staves at once\n"
     "m. 1, staff 2, beat 1: C3 half is in a voice that is on two staves at once\n"},
    {"StartAndStopOnOneNote",
     {Half("C5", "1", Notations("<slur type=\"start\"/><slur type=\"stop\"/>"))},
     {Half("C5", "1", Notations("<slur type=\"stop\"/><slur type=\"start\"/>"))},
     ""},
    {"NumbersWithSpacesAndZeros",
     {Half("C5", "1", Notations("<slur type=\"start\" number=\" 02\"/>")) +
      Half("D5", "1", Notations("<slur type=\"stop\" number=\"2\"/>"))},
     {Half("C5", "1", Notations("<slur type=\"start\" number=\"3\"/>")) +
      Half("D5", "1", Notations("<slur type=\"stop\" number=\"3\"/>"))},
     ""},
    {"RestOfVoiceOnAnotherStaff",
     {Half("C5") + Backup(4) + Half("r", "2", OnStaff2())},
     {Half("C5") + Backup(4) + Half("r", "1", OnStaff2())},
     "1: C5 half is in a voice that is on two staves at once\n"
     "m. 1, staff 2, beat 1: half rest is in a voice that is on two staves at once\n"},
    {"ChordOverTwoStavesTornApart",
     {Half("C5") + Half("C3", "1", OnStaff2(), kJoins)},
     {Half("C5") + Backup(4) + Half("C3", "1", OnStaff2())},
     "1: C5 half is in a voice that is on two staves at once\n"
     "m. 1, staff 2, beat 1: C3 half is in a voice that is on two staves at once\n"},
    {"TieRunsBackward",
     {Half("C5") + Half("C5") + Backup(8) + Half("C4", "2", Tied("start")) +
      Half("C4", "2", Tied("stop"))},
     {Half("C5") + Half("C5") + Half("C4", "1", Tied("stop"), kJoins) + Backup(8) +
      Half("C4", "2", Tied("start"))},
     "1: C4 half is tied to a note that comes before it in the file\n"},
    {"MeasureGrew",
     {Half("C5") + Half("D5")},
     {Half("C5") + Half("D5") + Half("r")},
     "m. 1, part 1: longer than before\n"},
    {"VoiceAddsUpToMore",
     {Half("C5") + Half("D5")},
     {Half("C5") + Half("D5") + Backup(4) + Half("r")},
     "m. 1, part 1: the durations of a voice add up to more than the measure\n"
     "3: D5 half shares time with its own voice\n3: half rest shares time with its own voice\n"},
    {"ChordParted",
     {Half("C5") + Half("A4", "1", {}, kJoins)},
     {Half("C5") + Backup(4) + Half("A4", "2")},
     "1: C5 half separated from its chord\n"},
    {"FingeringOnAnotherNoteOfTheChord",
     {Half("C5", "1", kFinger) + Backup(4) + Half("A4", "2")},
     {Half("C5") + Half("A4", "1", kFinger, kJoins)},
     "1: fingering \"1\" of A4 half gained\n"
     "1: fingering \"1\" of C5 half lost\n"},
    {"UnisonLost",
     {Half("C5") + Backup(4) + Half("C5", "2")},
     {Half("C5") + Backup(4) + Half("r", "2")},
     "1: C5 half lost\n"},
    {"GraceNotesChangeOrder",
     {Grace("D5", "1") + Grace("E5", "1") + Half("C5")},
     {Grace("E5", "1") + Grace("D5", "1") + Half("C5")},
     "1: grace notes change their order\n"},
    {"HarmonyChangesItsStaff",
     {Half("C5") + Backup(4) + kHarmony + Half("C3", "5", OnStaff2())},
     {kHarmony + Half("C5") + Backup(4) + Half("C3", "5", OnStaff2())},
     "1: harmony: root: root-step \"C\" gained\n"
     "m. 1, staff 2, beat 1: harmony: root: root-step \"C\" lost\n"},
    {"DirectionBeforeTheFirstVoice",
     {DirectionOf("1") + Half("C5") + Backup(4) + Half("A4", "2")},
     {DirectionOf("3") + Half("A4", "2") + Backup(4) + Half("C5", "3")},
     "1: sound comes before the first voice of its staff\n"},
    {"RatioLost",
     {kSixthsOfQuarter + Third("C5")},
     {kSixthsOfQuarter + Note({.pitch = "C5", .type = "eighth"})},
     "1: C5 eighth lost\n1: C5 eighth gained\n"},
};

class MergeFault : public testing::TestWithParam<FaultCase> {};

TEST_P(MergeFault, IsFound) {
    const FaultCase& c = GetParam();
    const Compared compared{ScoreText(c.before, "<staves>2</staves>"),
                            ScoreText(c.after, "<staves>2</staves>")};
    EXPECT_EQ(Sorted(compared.Faults()), Sorted(c.faults));
}

INSTANTIATE_TEST_SUITE_P(Cases, MergeFault, testing::ValuesIn(kFaults), kByName);

struct RightMerge {
    const char* name;
    Measures before;
    Measures after;

    friend void PrintTo(const RightMerge& row, std::ostream* out) { *out << row.name; }
};

const RightMerge kRightMerges[] = {
    {"NotesBecomeAChordWithTheMarksOfBoth",
     {Half("C5", "1", kStaccato) + Backup(4) + Half("A4", "2", Slur("start")) +
      Half("B4", "2", Slur("stop"))},
     {Half("C5", "1", kStaccato + Slur("start")) + Half("A4", "1", {}, kJoins) +
      Half("B4", "1", Slur("stop")) + Backup(8) + Half("r", "2") + Half("r", "2")}},
    {"RestsHideAndGo",
     {Half("r") + Half("D5") + Backup(8) + Half("C4", "2") + Half("r", "2")},
     {Half("C4") + Half("D5") + Backup(8) + "<note print-object=\"no\"><rest/>" +
      "<duration>8</duration><voice>2</voice></note>"}},
    {"EqualSlursBecomeOne",
     {Half("C5", "1", Slur("start")) + Half("D5", "1", Slur("stop")) + Backup(8) +
      Half("C4", "2", Slur("start")) + Half("D4", "2", Slur("stop"))},
     {Half("C5", "1", Slur("start")) + Half("C4", "1", {}, kJoins) + Half("D5", "1", Slur("stop")) +
      Half("D4", "1", {}, kJoins)}},
    {"EndsThatNobodyCouldPairMayBePaired",
     {Half("C5", "1", Slur("start")) + Backup(4) + Half("C4", "2", Slur("start")),
      Half("D5", "1", Slur("stop")) + Backup(4) + Half("D4", "2", Slur("stop"))},
     {Half("C5", "1", Slur("start", "1")) + Backup(4) + Half("C4", "2", Slur("start", "2")),
      Half("D5", "1", Slur("stop", "1")) + Backup(4) + Half("D4", "2", Slur("stop", "2"))}},
    {"SlurToARestThatWasFilledEarlier",
     {Half("C5", "1", Slur("start")) + Quarter("r") + Quarter("r", "1", Slur("stop")) + Backup(4) +
      Half("C4", "2")},
     {Half("C5", "1", Slur("start")) + Half("C4", "1", Slur("stop"))}},
    {"TupletsOfTwoVoicesBecomeOneAndOneOfRestsStays",
     {kSixthsOfQuarter + Triplet("C5") + Backup(6) + Triplet("C4", "2")},
     {kSixthsOfQuarter + Third("C5", "1", kTupletStart) +
      Note({"C4", 2, "eighth", "1",
            "<time-modification><actual-notes>3</actual-notes><normal-notes>2</normal-notes>"
            "</time-modification>",
            kJoins}) +
      Third("C5") +
      Note({"C4", 2, "eighth", "1",
            "<time-modification><actual-notes>3</actual-notes><normal-notes>2</normal-notes>"
            "</time-modification>",
            kJoins}) +
      Third("C5", "1", kTupletStop) +
      Note({"C4", 2, "eighth", "1",
            "<time-modification><actual-notes>3</actual-notes><normal-notes>2</normal-notes>"
            "</time-modification>",
            kJoins}) +
      Backup(6) + Triplet("r", "2")}},
    {"NoteJoinsAChordOfATupletWithoutBrackets",
     {kSixthsOfQuarter + Third("C5", "1", kTupletStart) + Third("r") +
      Third("r", "1", kTupletStop) + Backup(6) + Third("C4", "2") + Third("r", "2") +
      Third("r", "2")},
     {kSixthsOfQuarter + Triplet("r") + Backup(6) + Third("C4", "2") +
      Note({"C5", 2, "eighth", "2",
            "<time-modification><actual-notes>3</actual-notes><normal-notes>2</normal-notes>"
            "</time-modification>",
            kJoins}) +
      Third("r", "2") + Third("r", "2")}},
    {"PartOfATupletOnEachStaffInVoicesOfTheirOwn",
     {kSixthsOfQuarter + Third("C5", "1", kTupletStart) + Third("C5", "1", OnStaff2()) +
      Third("C5", "1", kTupletStop)},
     {kSixthsOfQuarter + Third("C5", "1", kTupletStart) + Third("r") +
      Third("C5", "1", kTupletStop) + Backup(6) + Third("r", "2", OnStaff2(kTupletStart)) +
      Third("C5", "2", OnStaff2()) + Third("r", "2", OnStaff2(kTupletStop))}},
    {"LyricTakesTheNextFreeNumber",
     {Half("C5", "1", Lyric("1", "la")) + Backup(4) + Half("A4", "2", Lyric("1", "ho"))},
     {Half("C5", "1", Lyric("1", "la") + Lyric("2", "ho")) + Half("A4", "1", {}, kJoins)}},
    {"ChordOverTwoStavesBecomesAChordOnEach",
     {Half("C5", "5") + Half("C3", "5", OnStaff2(), kJoins)},
     {Half("C5", "5") + Backup(4) + Half("C3", "6", OnStaff2())}},
    {"GraceNotesOfOneVoicePart",
     {Grace("D5", "2") + Grace("E5", "2") + Half("C5", "2")},
     {Grace("E5", "1") + Half("C5", "1") + Backup(4) + Grace("D5", "2")}},
    {"TiesThatCrossBetweenVoicesCannotAllRunForward",
     {Half("C5", "1", Tied("start")) + Half("C5", "1", Tied("stop")) + Backup(8) +
      Half("C4", "2", Tied("start")) + Half("C4", "2", Tied("stop"))},
     {Half("C5", "1", Tied("start")) + Half("C4", "1", Tied("stop")) + Backup(8) +
      Half("C4", "2", Tied("start")) + Half("C5", "2", Tied("stop"))}},
    {"StopThatStoodBeforeItsStart",
     {Forward(4) + Half("D5", "1", Slur("stop")) + Backup(8) + Half("C5", "2", Slur("start"))},
     {Forward(4) + Half("D5", "1", Slur("stop")) + Backup(8) + Half("C5", "1", Slur("start"))}},
};

class IntendedMerge : public testing::TestWithParam<RightMerge> {};

TEST_P(IntendedMerge, IsAllowed) {
    const RightMerge& c = GetParam();
    const Compared compared{ScoreText(c.before, "<staves>2</staves>"),
                            ScoreText(c.after, "<staves>2</staves>")};
    EXPECT_EQ(compared.Faults(), "");
}

INSTANTIATE_TEST_SUITE_P(Cases, IntendedMerge, testing::ValuesIn(kRightMerges), kByName);

TEST(Replaced, ExceptsOnlyClearedRange) {
    const Compared compared{
        ScoreText({Half("C5", "1", Slur("start")) + Half("D5", "1", Slur("stop")) + Backup(8) +
                   Half("E4", "2")}),
        ScoreText({Half("E4") + Half("D5")})};
    const std::string lostSlur = "1: slur from C5 half to D5 half in m. 1, beat 3 lost\n";
    const std::string lostNote = "1: C5 half lost\n";
    EXPECT_EQ(compared.Faults({{1, 1, "1", 0, 2047}}), "");
    EXPECT_EQ(compared.Faults({{1, 1, "1", 1, 2047}}), lostSlur + lostNote);
    EXPECT_EQ(compared.Faults({{1, 1, "2", 0, 2047}}), lostSlur + lostNote);
    EXPECT_EQ(compared.Faults({{2, 1, "1", 0, 2047}}), lostSlur + lostNote);
}

}  // namespace
}  // namespace standin
