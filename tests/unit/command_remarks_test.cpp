// What a merge's report says besides its totals.
#include <algorithm>
#include <nlohmann/json.hpp>

#include "tests/unit/command_support.h"
#include "tests/unit/support/named_cases.h"
#include "tests/unit/tuplet_score.h"

namespace {

using namespace standin::cli;

using standin::Backup;
using standin::Note;

std::string Quarter(std::string_view pitch, std::string_view voice = "1",
                    std::string_view more = "") {
    return Note({.pitch = pitch, .voice = voice, .more = more});
}

std::string Eighth(std::string_view pitch) {
    return Note({.pitch = pitch, .duration = 1, .type = "eighth"});
}

const std::string kTieStart = Notations("<tied type=\"start\"/>");
const std::string kTieStop = Notations("<tied type=\"stop\"/>");
const std::string kTrill = Notations("<ornaments><trill-mark/></ornaments>");
const std::string kFiveVoices = Half("C5") + Half("D5") + Backup(8) + Half("A4", "2") +
                                Half("B4", "2") + Backup(8) + Half("r", "3") + Half("r", "3") +
                                Backup(8) + Half("r", "4") + Half("r", "4") + Backup(8) +
                                Half("E4", "5") + Half("F4", "5");

// The report's lines besides its totals.
std::vector<std::string> RemarksIn(const std::string& json) {
    const auto report = nlohmann::json::parse(json);
    std::vector<std::string> remarks;
    for (const auto& remark : report.value("remarks", nlohmann::json::array())) {
        remarks.push_back(remark["text"]);
    }
    return remarks;
}

struct RemarkCase {
    const char* name;
    std::string measure;
    std::vector<std::string> remarks;

    friend void PrintTo(const RemarkCase& row, std::ostream* out) { *out << row.name; }
};

const RemarkCase kRemarks[] = {
    {"AMarkingThatJoins",
     Half("C5", "1", kFermata) + Half("D5", "1", Notations("<arpeggiate/>")) + Backup(8) +
         Half("A4", "2", kTrill) + Half("B4", "2"),
     {"m. 1, Piano, beat 1: the fermata of layer 1 now applies to the whole chord",
      "m. 1, Piano, beat 1: the trill of layer 2 now applies to the whole chord",
      "m. 1, Piano, beat 3: the arpeggio of layer 1 now applies to the whole chord"}},
    {"AMarkingOfBoth", Half("C5", "1", kFermata) + Backup(4) + Half("A4", "2", kFermata), {}},
    {"AMarkingThatFillsARest", Half("r") + Backup(4) + Half("A4", "2", kTrill), {}},
    {"AMarkingOfOneNote", Half("C5") + Backup(4) + Half("A4", "2", Notations(kFinger)), {}},
    {"ALyric",
     Half("C5", "1", Lyric("1", "la")) + Backup(4) + Half("A4", "2", Lyric("1", "ho")),
     {"m. 1, Piano, beat 1: the lyric \"ho\" is now number 2"}},
    {"TiesThatRunBothWays",
     Quarter("C5") + Eighth("D5") + Eighth("D5") + Eighth("E5") + Eighth("E5") + Quarter("F5") +
         Backup(8) + Quarter("G4", "2", kTieStart) + Quarter("G4", "2", kTieStop) +
         Quarter("A4", "2", kTieStart) + Quarter("A4", "2", kTieStop),
     {"m. 1, Piano, beat 3: the tie of A4 continues in layer 1"}},
    {"TwoTiesOfOnePitch",
     Half("C5", "1", kTieStart) + Half("C5", "1", kTieStop) + Backup(8) +
         Half("C5", "2", kTieStart) + Half("C5", "2", kTieStop),
     {"m. 1, Piano, beat 1: C5 is tied twice in one chord"}},
    {"AFifthVoice", kFiveVoices, {"m. 1, Piano: a fifth voice is not merged"}},
};

// Layer 1 keeps the end of another tie of D5, which some readers would take.
TEST_F(CommandRun, ReportNamesTieIntoAnotherVoiceOfNextMeasure) {
    const std::string first = Half("E5") + Half("D5", "1", kTieStart) + Backup(8) +
                              Half("G4", "2") + Quarter("A4", "2") + Quarter("B4", "2");
    const auto second = [](const std::string& third) {
        return Half("D5", "1", kTieStop + kTieStart) + third + Backup(8) + Half("G4", "2") +
               Half("B4", "2");
    };
    const std::string tied = second(Quarter("D5", "1", kTieStop) + Quarter("E5"));
    const std::string single = second(Quarter("C5") + Quarter("E5"));
    const std::string remark = "m. 1, Piano, beat 3: the tie of D5 continues in layer 2";
    for (const auto& [measure, isNamed] : {std::pair{tied, true}, std::pair{single, false}}) {
        ASSERT_EQ(Run({"merge", Write("in.xml", standin::ScoreText({first, measure})), "-o",
                       File("out.xml"), "--from", "1", "--to", "2", "--verify"}),
                  kDone)
            << errors;
        EXPECT_EQ(output.find(remark) != std::string::npos, isNamed) << output;
    }
}

struct DividedCase {
    const char* name;
    std::string score;
    std::vector<std::string> options;
    std::vector<std::string> remarks;

    friend void PrintTo(const DividedCase& row, std::ostream* out) { *out << row.name; }
};

const DividedCase kDivided[] = {
    {"ATupletOfWhichOneStaffMoves",
     standin::TupletScore({"r quarter 36, r half 72, r quarter 36, back 144, C5 eighth 12 3:2 v2 "
                           "[, E3 eighth 12 3:2 "
                           "v2 s2, D5 eighth 12 3:2 v2 ], E5 half 72 v2, F5 quarter 36 v2, back "
                           "144, G3 whole 144 v3 "
                           "s2"}),
     {"--from", "2", "--to", "1"},
     {"m. 1, Piano, staff 1, beat 1: part of a tuplet moved to layer 1; the rest of it is on "
      "another staff"}},
    {"ANoteThatLeavesItsTuplet",
     standin::TupletScore(
         {"C5 eighth 12 3:2 [, r quarter 24 3:2 ], r quarter 36, r half 72, back "
          "144, D4 eighth 12 6:4 v2 [, r quarter 24 6:4 v2, r quarter 24 6:4 v2, E4 "
          "eighth 12 6:4 v2 ], r half 72 v2"}),
     {"--from", "2", "--to", "1"},
     {"m. 1, Piano, staff 1, beat 1: D4 joined a chord outside its tuplet"}},
    {"ATrillThatStopsFirst",
     standin::ScoreText(
         {Half("E5", "1", Notations("<slur type=\"start\" number=\"1\"/>")) +
          Half("G5", "1",
               Notations("<slur type=\"stop\" number=\"1\"/><ornaments><trill-mark/><wavy-line "
                         "type=\"start\" number=\"1\"/></ornaments>")) +
          "<note><grace/><pitch><step>A</step><octave>5</octave></pitch><voice>1</voice><type>16th"
          "</type>" +
          Notations("<ornaments><wavy-line type=\"stop\" number=\"1\"/></ornaments>") + "</note>"}),
     {"--from", "1", "--to", "2", "--from-beat", "1.5"},
     {"m. 1, Piano, beat 3: the trill line ends before it starts in the file; other programs may "
      "read it otherwise"}},
};

class DividedMusic : public CommandRun, public testing::WithParamInterface<DividedCase> {};

TEST_P(DividedMusic, IsReported) {
    const DividedCase& c = GetParam();
    std::vector<std::string> arguments{
        "merge", Write("in.xml", c.score), "-o", File("out.xml"), "--verify", "--json"};
    arguments.insert(arguments.end(), c.options.begin(), c.options.end());
    ASSERT_EQ(Run(arguments), kDone) << errors;
    EXPECT_EQ(RemarksIn(output), c.remarks);
}

INSTANTIATE_TEST_SUITE_P(Cases, DividedMusic, testing::ValuesIn(kDivided), standin::kByName);

class ReportRemark : public CommandRun, public testing::WithParamInterface<RemarkCase> {};

TEST_P(ReportRemark, IsReported) {
    const RemarkCase& c = GetParam();
    ASSERT_EQ(Run({"merge", Write("in.xml", standin::ScoreText({c.measure})), "-o", File("out.xml"),
                   "--verify", "--json"}),
              kDone)
        << errors;
    EXPECT_EQ(RemarksIn(output), c.remarks);
}

INSTANTIATE_TEST_SUITE_P(Cases, ReportRemark, testing::ValuesIn(kRemarks), standin::kByName);

TEST_F(CommandRun, ReportNamesFifthVoice) {
    const std::string input = Write("in.xml", standin::ScoreText({kFiveVoices}));
    EXPECT_EQ(Run({"merge", input, "-o", File("out.xml")}), kDone);
    EXPECT_NE(output.find("\n  m. 1, Piano: a fifth voice is not merged\n"), std::string::npos);
}

// Readers look for the end of a tie after its start.
TEST_F(CommandRun, ReportNamesNotesAsWritten) {
    const auto whole = [](const std::string& pitch) {
        return "<note>" + pitch + "<duration>8</duration><voice>2</voice></note>";
    };
    const std::string music =
        Half("C5") + Half("D5") + Backup(8) +
        whole("<pitch><step>B</step><alter>-2</alter><octave>3</octave></pitch>") +
        whole("<chord/><pitch><step>C</step><alter>0.5</alter><octave>4</octave></pitch>") +
        whole(
            "<chord/><unpitched><display-step>E</display-step><display-octave>4</display-octave>"
            "</unpitched>") +
        whole("<chord/><unpitched/>");
    ASSERT_EQ(Run({"merge", Write("in.xml", standin::ScoreText({music})), "--dry-run", "--json"}),
              kDone)
        << errors;
    const auto report = nlohmann::json::parse(output);
    std::vector<std::string> pitches = report["measures"][0]["stayed"][0]["pitches"];
    std::ranges::sort(pitches);
    EXPECT_EQ(pitches, (std::vector<std::string>{"Bbb3", "C(0.5)4", "unpitched", "unpitched E4"}));
}

TEST_F(CommandRun, TieIntoOtherLayerKeepsOrder) {
    const std::string input = Write(
        "in.xml", standin::ScoreText({Quarter("E5") + Quarter("F5") + Half("A5") + Backup(8) +
                                      Half("C5", "2", kTieStart) + Half("C5", "2", kTieStop)}));
    ASSERT_EQ(Run({"merge", input, "-o", File("out.xml"), "--verify"}), kDone) << errors;
    EXPECT_NE(output.find("1 chord formed"), std::string::npos) << output;
    EXPECT_EQ(output.find("the tie"), std::string::npos) << output;
    const std::string merged = Content(File("out.xml"));
    EXPECT_LT(merged.find("<tied type=\"start\""), merged.find("<tied type=\"stop\"")) << merged;
}

}  // namespace
