// Measures cut out of scores, and whose their notes were.
#include <pugixml.hpp>
#include <sstream>

#include "host/report/excerpts.h"
#include "host/report/measure_pictures.h"
#include "tests/unit/musicxml_support.h"
#include "tests/unit/support/named_cases.h"

namespace {

using namespace standin;

const char* const kTreble = "<clef number=\"1\"><sign>G</sign><line>2</line></clef>";
const char* const kTwoStaves =
    "<key><fifths>2</fifths></key><staves>2</staves>"
    "<clef number=\"1\"><sign>G</sign><line>2</line></clef>"
    "<clef number=\"2\"><sign>F</sign><line>4</line></clef>";

std::string OnStaff(int staff) {
    return "<staff>" + std::to_string(staff) + "</staff>";
}

struct CutCase {
    const char* name;
    std::vector<std::string> measures;
    const char* attributes;
    u16 staff;
    std::size_t measure;  // from 0
    const char* excerpt;  // without what every note of the cases has

    friend void PrintTo(const CutCase& row, std::ostream* out) { *out << row.name; }
};

class Cut : public testing::TestWithParam<CutCase> {};

// The excerpt with its notes in short: "[n0 C4 2]", "[rest 2]", "+" before one of a chord.
std::string Short(const std::string& measure) {
    pugi::xml_document document;
    document.load_string(measure.c_str());
    std::string text;
    for (const pugi::xml_node child : document.child("measure").children()) {
        const pugi::xml_node pitch = child.child("pitch");
        if (std::string_view{child.name()} != "note") {
            std::ostringstream raw;
            child.print(raw, "", pugi::format_raw);
            text += raw.str();
            continue;
        }
        text += child.child("chord") ? "+[" : "[";
        text += child.child("rest") ? "rest" : child.attribute("id").value();
        text += std::string{" "} + pitch.child_value("step") + pitch.child_value("octave") + " " +
                child.child_value("duration") + (child.child("staff") ? " staff]" : "]");
    }
    return text;
}

TEST_P(Cut, HoldsTheStaffAndWhatIsInForce) {
    const CutCase& row = GetParam();
    const std::vector<Excerpt> cut =
        CutExcerpts(ScoreText(row.measures, row.attributes), {{"P1", row.staff, row.measure}});
    EXPECT_EQ(Short(cut.at(0).measure), row.excerpt);
}

INSTANTIATE_TEST_SUITE_P(
    Scores, Cut,
    testing::Values(
        CutCase{"TheFirstMeasure",
                {Note({}) + Note({"r"})},
                kTreble,
                1,
                0,
                "<attributes><divisions>2</divisions>"
                "<clef><sign>G</sign><line>2</line></clef></attributes>[n0 C4 2][rest  2]"},
        CutCase{"AttributesOfMeasuresBefore",
                {Note({}) + "<attributes><key><fifths>-1</fifths></key>"
                            "<clef><sign>F</sign><line>4</line></clef></attributes>",
                 "<attributes><divisions>4</divisions></attributes>" + Note({"D3", 4})},
                kTreble,
                1,
                1,
                "<attributes><divisions>4</divisions><key><fifths>-1</fifths></key>"
                "<clef><sign>F</sign><line>4</line></clef></attributes>[n0 D3 4]"},
        CutCase{
            "AttributesWithinTheMeasure",
            {Note({}) + "<attributes><clef number=\"2\"><sign>G</sign></clef></attributes>" +
             "<attributes><clef number=\"1\"><sign>C</sign></clef></attributes>" + Note({"E4"})},
            kTreble,
            1,
            0,
            "<attributes><divisions>2</divisions>"
            "<clef><sign>G</sign><line>2</line></clef></attributes>[n0 C4 2]<attributes/>"
            "<attributes><clef><sign>C</sign></clef></attributes>[n1 E4 2]"},
        CutCase{"TheLowerStaff",
                {Note({.pitch = "C5", .more = OnStaff(1)}) + Backup(2) +
                 Note({.pitch = "C3", .voice = "2", .more = OnStaff(2)})},
                kTwoStaves,
                2,
                0,
                "<attributes><divisions>2</divisions><key><fifths>2</fifths></key>"
                "<clef><sign>F</sign><line>4</line></clef></attributes>[n0 C3 2]"},
        CutCase{
            "AVoiceThatVisitsTheOtherStaff",
            {Note({.pitch = "C5", .more = OnStaff(1)}) + Note({.pitch = "D3", .more = OnStaff(2)}) +
             Note({.pitch = "E5", .more = OnStaff(1)}) + Backup(6) +
             Note({.pitch = "F5", .voice = "2", .more = OnStaff(1)})},
            kTwoStaves,
            1,
            0,
            "<attributes><divisions>2</divisions><key><fifths>2</fifths></key>"
            "<clef><sign>G</sign><line>2</line></clef></attributes>[n0 C5 2]"
            "<forward><duration>2</duration></forward>[n1 E5 2]"
            "<backup><duration>6</duration></backup>[n2 F5 2]"},
        CutCase{"AChordOverTwoStaves",
                {Note({.pitch = "C3", .more = OnStaff(2)}) +
                 Note({.pitch = "E4", .more = OnStaff(1), .first = "<chord/>"}) +
                 Note({.pitch = "G4", .more = OnStaff(1), .first = "<chord/>"}) +
                 Note({.pitch = "A4", .more = OnStaff(1)})},
                kTwoStaves,
                1,
                0,
                "<attributes><divisions>2</divisions><key><fifths>2</fifths></key>"
                "<clef><sign>G</sign><line>2</line></clef></attributes>"
                "[n0 E4 2]+[n1 G4 2][n2 A4 2]"},
        CutCase{"GraceNotesTakeNoTime",
                {Note({.pitch = "B4", .duration = 0, .first = "<grace/>"}) + Note({}) +
                 "<direction><direction-type><words>a</words></direction-type></direction>" +
                 "<sound tempo=\"60\"/><print/>"},
                kTreble,
                1,
                0,
                "<attributes><divisions>2</divisions>"
                "<clef><sign>G</sign><line>2</line></clef></attributes>[n0 B4 ][n1 C4 2]"
                "<direction><direction-type><words>a</words></direction-type></direction>"},
        CutCase{"NoSuchMeasure", {Note({})}, kTreble, 1, 7, ""}),
    kByName);

TEST(Excerpts, SayWhenAndWhatTheirNotesAre) {
    const std::string text =
        ScoreText({Note({"C4", 1, "eighth"}) + Note({"F4", 3, "quarter"}) + Backup(4) +
                   "<note><pitch><step>B</step><alter>-1</alter><octave>3</octave></pitch>"
                   "<duration>2</duration><voice>2</voice><type>quarter</type></note>"});
    const std::vector<Excerpt> cut = CutExcerpts(text, {{"P1", 1, 0}});
    std::string notes;
    for (const ExcerptNote& note : cut.at(0).notes) {
        notes += std::to_string(note.onset) + ' ' + note.pitch + ' ' + note.voice + ';';
    }
    EXPECT_EQ(notes, "0 C4 1;512 F4 1;0 Bb3 2;");
}

// "1" for a note of layer 1, "2!" for one of layer 2 that stays.
std::string Owners(const Picture& picture) {
    std::string text;
    for (const PicturedNote& note : picture.notes) {
        text += (note.layer ? std::to_string(*note.layer + 1) : "?") + (note.stays ? "! " : " ");
    }
    return text;
}

TEST(Pictures, ANoteKeepsItsLayerAndOfEqualOnesEachItsOwn) {
    const std::string before =
        ScoreText({Note({"C5"}) + Note({"D5"}) + Note({"E5"}) + Backup(6) +
                   Note({.pitch = "C5", .voice = "2"}) + Note({.pitch = "B4", .voice = "2"}) +
                   Note({.pitch = "E5", .voice = "2"})});
    // C5 and E5 occur twice at one time; the second voice's E5 has stayed, the others have moved.
    const std::string after = ScoreText(
        {Note({"C5"}) + Note({.pitch = "C5", .first = "<chord/>"}) + Note({"B4"}) +
         Note({.pitch = "D5", .first = "<chord/>"}) + Note({"E5"}) + Backup(6) +
         Note({.pitch = "r", .duration = 4, .voice = "2"}) + Note({.pitch = "E5", .voice = "2"})});
    const auto score = Read(before);
    MergeReport report;
    report.measures.push_back({1, 1, "1", 0, 0, 0, 0, {{1, 2 * kQuarterNote, 3, {"E5"}}}});
    const std::vector<MeasurePictures> pictures = PicturesOf(report, *score, after);
    ASSERT_EQ(pictures.size(), 1U);
    EXPECT_EQ(Owners(pictures[0].before), "1 1 1 2 2 2! ");
    EXPECT_EQ(Owners(pictures[0].after), "1 2 2 1 1 2! ");
    EXPECT_EQ(pictures[0].before.words, "Layer 1: C5, D5, E5. Layer 2: C5, B4, E5");
}

}  // namespace
