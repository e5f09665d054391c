// Lines and directions after a merge, as a program reads them from the beginning of the text.
#include <map>
#include <regex>
#include <tuple>

#include "tests/unit/command_support.h"
#include "tests/unit/support/named_cases.h"

namespace {

using namespace standin::cli;
using standin::Backup;
using standin::Forward;
using standin::Note;

// One end of a line; its label moves with the element.
std::string End(const std::string& name, const std::string& type, int number, int label) {
    return "<" + name + " type=\"" + type + "\" number=\"" + std::to_string(number) +
           "\" default-y=\"" + std::to_string(label) + "\"/>";
}
std::string Slur(const std::string& type, int number, int label) {
    return "<notations>" + End("slur", type, number, label) + "</notations>";
}
std::string Trill(const std::string& ends) {
    return "<notations><ornaments><trill-mark/>" + ends + "</ornaments></notations>";
}
std::string Direction(const std::string& inner, int staff, const std::string& more = "") {
    return "<direction><direction-type>" + inner + "</direction-type>" + more + "<staff>" +
           std::to_string(staff) + "</staff></direction>\n";
}

// A note of so many eighths.
std::string At(int staff, std::string_view voice, std::string_view pitch, int eighths,
               const std::string& notations = "") {
    const std::map<int, std::string_view> types{
        {1, "eighth"}, {2, "quarter"}, {4, "half"}, {8, "whole"}};
    return Note({.pitch = pitch,
                 .duration = eighths,
                 .type = types.at(eighths),
                 .voice = voice,
                 .more = "<staff>" + std::to_string(staff) + "</staff>" + notations});
}

std::string Score(const std::vector<std::string>& measures) {
    return standin::ScoreText(measures, "<staves>2</staves>");
}

std::string Attribute(const std::string& element, const std::string& name) {
    std::smatch found;
    return std::regex_search(element, found, std::regex{name + "=\"([^\"]*)\""}) ? found[1].str()
                                                                                 : "1";
}

// The errors in pairing the ends in the order of the text.
std::string Faults(const std::string& text) {
    const std::regex pattern{"<(slur|wavy-line|wedge|octave-shift|dashes) [^>]*>"};
    std::map<std::pair<std::string, std::string>, std::string> open;  // label by name and number
    std::string faults;
    for (std::sregex_iterator at{text.begin(), text.end(), pattern}, end; at != end; ++at) {
        const std::string element = at->str();
        const std::pair key{(*at)[1].str(), Attribute(element, "number")};
        const std::string label = Attribute(element, "default-y");
        const std::string type = Attribute(element, "type");
        if (type != "stop" && type != "continue") {
            faults += open.contains(key) ? "taken twice: " + element : "";
            open[key] = label;
            continue;
        }
        faults += !open.contains(key)     ? "before its start: " + element
                  : open.at(key) != label ? "at line " + open.at(key) + ": " + element
                                          : "";
        if (type == "stop") {
            open.erase(key);
        }
    }
    return faults + (open.empty() ? "" : "without an end: " + open.begin()->second);
}

struct LineCase {
    const char* name;
    std::string measure;
    std::string from;
    std::string to;

    friend void PrintTo(const LineCase& row, std::ostream* out) { *out << row.name; }
};

std::string TwoOnTwoStaves(const std::string& name, const std::string& type) {
    return Direction(End(name, type, 1, 1), 1) + At(1, "1", "C5", 4) +
           Direction(End(name, "stop", 1, 1), 1) + At(1, "1", "D5", 4) + Backup(8) +
           At(1, "2", "A4", 4) + At(1, "2", "B4", 4) + Backup(8) + At(2, "5", "C3", 2) +
           Direction(End(name, type, 1, 2), 2) + At(2, "5", "D3", 2) + At(2, "5", "E3", 2) +
           Direction(End(name, "stop", 1, 2), 2) + At(2, "5", "F3", 2);
}

const LineCase kLineCases[] = {
    {"VoiceOverTwoStaves",
     At(1, "1", "C5", 2, Slur("start", 1, 1)) + At(2, "1", "D4", 2, Slur("stop", 1, 1)) +
         At(1, "1", "E5", 2, Slur("start", 1, 2)) + At(2, "1", "F4", 2, Slur("stop", 1, 2)) +
         Backup(8) + At(1, "2", "A4", 2) + At(1, "2", "r", 2) + At(1, "2", "B4", 4),
     "2", "1"},
    {"SlurBeyondAnArrivingSlur",
     At(1, "1", "C5", 2, Slur("start", 1, 1)) + At(1, "1", "r", 2) +
         At(1, "1", "D5", 4, Slur("stop", 1, 1)) + Backup(8) + At(1, "2", "r", 2) +
         At(1, "2", "F4", 2, Slur("start", 1, 2)) + At(1, "2", "G4", 2, Slur("continue", 1, 2)) +
         At(1, "2", "A4", 2, Slur("stop", 1, 2)),
     "all", "1"},
    {"SlurBetweenTwoVoices",
     At(1, "1", "C5", 2) + At(1, "1", "D5", 2, Slur("start", 1, 1)) + At(1, "1", "E5", 2) +
         At(1, "1", "F5", 2, Slur("stop", 1, 1)) + Backup(8) +
         At(2, "5", "C3", 4, Slur("start", 1, 2)) + At(2, "5", "D3", 4) + Backup(8) +
         At(2, "6", "r", 4) + At(2, "6", "E3", 4, Slur("stop", 1, 2)),
     "1", "3"},
    {"StopBeforeItsStart",
     At(1, "1", "C5", 2) + At(1, "1", "D5", 2, Slur("stop", 1, 1)) + At(1, "1", "r", 4) +
         Backup(8) + At(1, "2", "A4", 4, Slur("start", 1, 1)) + At(1, "2", "B4", 4) + Backup(4) +
         At(1, "3", "G4", 4),
     "3", "1"},
    {"TrillOverOneNote",
     At(1, "1", "C5", 4, Trill(End("wavy-line", "start", 1, 1) + End("wavy-line", "stop", 1, 1))) +
         At(1, "1", "D5", 4,
            Trill(End("wavy-line", "start", 1, 2) + End("wavy-line", "stop", 1, 2))) +
         Backup(8) + At(1, "2", "A4", 4) + At(1, "2", "r", 4),
     "1", "2"},
    {"HairpinsOfTwoStaves", TwoOnTwoStaves("wedge", "crescendo"), "2", "1"},
    {"OctaveShiftsOfTwoStaves", TwoOnTwoStaves("octave-shift", "down"), "all", "1"},
    {"HairpinThatStopsAtASlurToAnotherStream",
     At(1, "1", "C5", 1) + Direction(End("wedge", "crescendo", 1, 1), 1) + At(1, "1", "D5", 1) +
         Direction(End("wedge", "stop", 1, 1), 1) + At(2, "1", "D4", 2, Slur("start", 1, 1)) +
         At(1, "1", "E5", 4, Slur("stop", 1, 1)) + Backup(8) + At(1, "5", "A4", 2) +
         At(1, "5", "G4", 2) + At(1, "5", "A4", 4),
     "2", "1"},
    {"DashesOfTwoStaves", TwoOnTwoStaves("dashes", "start"), "1", "2"},
};

class LineEnds : public CommandRun, public testing::WithParamInterface<LineCase> {};

TEST_P(LineEnds, PairInTextOrder) {
    const LineCase& c = GetParam();
    ASSERT_EQ(Run({"merge", Write("in.xml", Score({c.measure})), "-o", File("out.xml"), "--from",
                   c.from, "--to", c.to, "--verify"}),
              kDone)
        << errors;
    const std::string merged = Content(File("out.xml"));
    EXPECT_NE(merged, Content(File("in.xml")));
    EXPECT_EQ(Faults(merged), "") << merged;
}

INSTANTIATE_TEST_SUITE_P(Cases, LineEnds, testing::ValuesIn(kLineCases), standin::kByName);

// The slur that continues into the third measure gets another number there, too.
TEST_F(CommandRun, UnchangedMeasureChangesOnlyNumbers) {
    const std::string stop =
        "<note ><pitch><step>A</step><octave>4</octave></pitch><duration>8"
        "</duration><voice>2</voice><notations>";
    const std::string text =
        Score({At(1, "1", "C5", 8, Slur("start", 1, 1)),
               At(1, "1", "r", 4) + At(1, "1", "D5", 4, Slur("stop", 1, 1)) + Backup(8) +
                   At(1, "2", "F4", 4, Slur("start", 1, 2)),
               stop + "<slur  type='stop' default-y=\"2\"/></notations></note>\n"});
    ASSERT_EQ(
        Run({"merge", Write("in.xml", text), "-o", File("out.xml"), "--measures", "2", "--verify"}),
        kDone)
        << errors;
    const std::string merged = Content(File("out.xml"));
    const std::string third = "<measure number=\"3\">\n";
    EXPECT_EQ(Faults(std::regex_replace(merged, std::regex{"'"}, "\"")), "") << merged;
    EXPECT_EQ(merged.substr(merged.find(third)),
              third + stop +
                  "<slur number=\"2\"  type='stop' default-y=\"2\"/></notations></note>\n"
                  "</measure>\n</part>\n</score-partwise>\n");
}

// There are numbers for sixteen lines, and no more.
TEST_F(CommandRun, TooManyLinesAreRefused) {
    const auto slurs = [](const std::string& type, int count, int first) {
        std::string ends = "<notations>";
        for (int i = 1; i <= count; ++i) {
            ends += End("slur", type, i, first + i);
        }
        return ends + "</notations>";
    };
    for (const int count : {8, 9}) {
        const std::string text =
            Score({At(1, "1", "C5", 2, slurs("start", count, 0)) + At(1, "1", "r", 2) +
                   At(1, "1", "D5", 2, slurs("stop", count, 0)) + At(1, "1", "r", 2) + Backup(8) +
                   At(1, "2", "r", 2) + At(1, "2", "E4", 2, slurs("start", count, 20)) +
                   At(1, "2", "r", 2) + At(1, "2", "F4", 2, slurs("stop", count, 20))});
        const int exitCode =
            Run({"merge", Write("in.xml", text), "-o", File(std::to_string(count) + ".xml")});
        EXPECT_EQ(exitCode, count == 8 ? kDone : kFailed) << errors;
    }
    EXPECT_EQ(Faults(Content(File("8.xml"))), "");
    EXPECT_NE(errors.find("part P1, measure 1: more than 16 lines of one kind (slur)"),
              std::string::npos)
        << errors;
    EXPECT_FALSE(std::filesystem::exists(File("9.xml")));
}

// Music that joins the voice's own staff makes its music on the other staff a separate voice.
TEST_F(CommandRun, VoiceSoundsOnOneStaffAtATime) {
    const std::string text = Score({At(1, "1", "C5", 4) + At(2, "1", "D4", 4) + Backup(4) +
                                    At(1, "2", "F5", 4) + Backup(8) + At(2, "5", "C3", 8)});
    ASSERT_EQ(Run({"merge", Write("in.xml", text), "-o", File("out.xml"), "--from", "2", "--to",
                   "1", "--hide-rests", "--verify"}),
              kDone)
        << errors;
    const std::string merged = Content(File("out.xml"));
    const auto voiceOf = [&merged](const std::string& step) {
        const std::size_t at = merged.find("<voice>", merged.find("<step>" + step));
        return merged.substr(at + 7, 1);
    };
    EXPECT_EQ(voiceOf("C"), "1");
    EXPECT_EQ(voiceOf("F"), "1");
    EXPECT_EQ(voiceOf("D"), "3") << merged;
}

// One note of a chord across two staves moves. If the rest it left and the other note had the same
// voice, readers would place them in sequence.
TEST_F(CommandRun, RestLeftBehindGetsOwnVoice) {
    const std::string text = Score({At(1, "1", "D4", 8) + Note({.pitch = "B3",
                                                                .duration = 8,
                                                                .voice = "1",
                                                                .more = "<staff>2</staff>",
                                                                .first = "<chord/>"})});
    ASSERT_EQ(Run({"merge", Write("in.xml", text), "-o", File("out.xml"), "--from", "1", "--to",
                   "2", "--staves", "1", "--verify"}),
              kDone)
        << errors;
    const std::string merged = Content(File("out.xml"));
    const auto voiceAfter = [&merged](const std::string& mark) {
        return merged.substr(merged.find("<voice>", merged.find(mark)) + 7, 1);
    };
    EXPECT_NE(voiceAfter("<rest"), voiceAfter("<step>B")) << merged;
}

std::string Triplet(std::string_view voice, std::string_view pitch, std::string_view tuplet = "") {
    const std::string ends =
        tuplet.empty() ? ""
                       : "<notations><tuplet type=\"" + std::string{tuplet} + "\"/></notations>";
    return Note({.pitch = pitch,
                 .duration = 2,
                 .type = "eighth",
                 .voice = voice,
                 .more = "<time-modification><actual-notes>3</actual-notes><normal-notes>2"
                         "</normal-notes></time-modification><staff>1</staff>" +
                         ends});
}

// Directions of two voices at times where none of their notes begins.
TEST_F(CommandRun, DirectionsStayInTheirStream) {
    const auto triplet = [](std::string_view voice, const std::string& pitch) {
        return Triplet(voice, pitch, "start") +
               Direction("<words>in " + std::string{voice} + "</words>", 1) +
               Triplet(voice, pitch) + Triplet(voice, pitch, "stop");
    };
    const auto quarter = [](std::string_view voice, std::string_view pitch) {
        return Note({.pitch = pitch, .duration = 6, .voice = voice, .more = "<staff>1</staff>"});
    };
    const std::string text =
        Score({"<attributes><divisions>6</divisions></attributes>\n" + triplet("1", "C5") +
               quarter("1", "r") + Backup(12) +
               Note({.pitch = "A4", .duration = 3, .type = "eighth", .voice = "2"}) +
               Direction("<words>half</words>", 1) +
               Note({.pitch = "A4", .duration = 3, .type = "eighth", .voice = "2"}) +
               quarter("2", "B4")});
    ASSERT_EQ(Run({"merge", Write("in.xml", text), "-o", File("out.xml"), "--from", "2", "--to",
                   "1", "--hide-rests", "--verify"}),
              kDone)
        << errors;
    const std::string merged = Content(File("out.xml"));
    const std::size_t stop = merged.find("<tuplet type=\"stop\"");
    const std::string tuplet = merged.substr(0, stop);
    EXPECT_EQ(tuplet.find("<backup>"), std::string::npos) << merged;
    EXPECT_EQ(tuplet.find("<forward>"), std::string::npos) << merged;
    EXPECT_LT(merged.find("in 1"), stop);
    EXPECT_GT(merged.find("half"), stop);
    EXPECT_EQ(merged.find("<divisions>6"), merged.rfind("<divisions>"));
}

// A voice with only a whole note gets what was within another one. Not all readers know
// <offset>.
TEST_F(CommandRun, DirectionWithinNoteComesBehindItsVoice) {
    const std::string text = Score(
        {Direction("<wedge type=\"crescendo\" number=\"1\"/>", 1) + At(1, "1", "r", 4) +
         Direction("<wedge type=\"stop\" number=\"1\"/>", 1) +
         Direction("<wedge type=\"diminuendo\" number=\"2\"/>", 1) + At(1, "1", "r", 4) +
         Direction("<wedge type=\"stop\" number=\"2\"/>", 1) + Backup(8) + At(1, "2", "C5", 8)});
    ASSERT_EQ(Run({"merge", Write("in.xml", text), "-o", File("out.xml"), "--from", "2", "--to",
                   "1", "--hide-rests", "--verify"}),
              kDone)
        << errors;
    const std::string merged = Content(File("out.xml"));
    const std::size_t note = merged.rfind("</note>");
    EXPECT_LT(merged.find("crescendo"), note);
    std::size_t last = note;
    for (const char* next : {"<backup>", "<duration>4</duration>", "stop\" number=\"1\"",
                             "diminuendo", "<forward>", "stop\" number=\"2\""}) {
        const std::size_t at = merged.find(next, last);
        ASSERT_NE(at, std::string::npos) << next << merged;
        last = at;
    }
}

}  // namespace
