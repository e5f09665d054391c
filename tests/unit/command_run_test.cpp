// The complete command: from a file through the real plug-in to a file.
#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>

#include "tests/unit/command_support.h"
#include "tests/unit/support/named_cases.h"

namespace {

namespace fs = std::filesystem;
using namespace standin::cli;

const std::string kCarol = std::string{PLYWELD_EXAMPLES} + "/adeste-fideles.musicxml";

using standin::Backup;
using standin::Note;

TEST_F(CommandRun, CarolLosesNothing) {
    ASSERT_EQ(Run({"merge", kCarol, "-o", File("out.musicxml"), "--verify"}), kDone) << errors;
    EXPECT_EQ(
        output,
        "105 chords formed, 4 rests filled, 112 notes moved\n"
        "4 notes and chords left in other layers:\n"
        "  m. 3, Chorus, staff 1: 1 stays in layer 2, no rest of the same length to fill: beat 4\n"
        "  m. 6\u20137, Chorus, staff 1: 2 stay in layer 2, another duration at the same time: "
        "beats 1, 3\n"
        "  m. 19, Chorus, staff 1: 1 stays in layer 2, another duration at the same time: beat 3\n"
        "Worth knowing:\n"
        "  m. 4, Chorus, staff 1, beat 3: the breath mark of layer 1 now applies to the whole "
        "chord\n"
        "  m. 12, Chorus, staff 1, beat 3: the breath mark of layer 1 now applies to the whole "
        "chord\n"
        "  m. 14, Chorus, staff 1, beat 3: the breath mark of layer 1 now applies to the whole "
        "chord\n"
        "  m. 16, Chorus, staff 1, beat 3: the breath mark of layer 1 now applies to the whole "
        "chord\n"
        "  m. 20, Chorus, staff 1, beat 1: the fermata of layer 1 now applies to the whole chord\n"
        "  m. 20, Chorus, staff 2, beat 1: the fermata of layer 1 now applies to the whole chord\n"
        "Verified: no music was lost\n");
}

TEST_F(CommandRun, WhatBecameAChordIsALossOnlyToAPlainComparison) {
    const std::string merged = File("out.musicxml");
    ASSERT_EQ(Run({"merge", kCarol, "-o", merged}), kDone) << errors;
    EXPECT_EQ(Run({"compare", kCarol, kCarol}), kDone);
    EXPECT_EQ(Run({"compare", kCarol, merged, "--merged"}), kDone);
    EXPECT_EQ(output, "No music was lost\n");

    EXPECT_EQ(Run({"compare", kCarol, merged}), kFailed);
    EXPECT_NE(output.find("(--details shows all)"), output.npos) << output;
    EXPECT_EQ(output.find('<'), output.npos) << "words, not markup: " << output;
    EXPECT_EQ(Run({"compare", kCarol, merged, "--details"}), kFailed);
    const auto lines = std::ranges::count(output, '\n');
    EXPECT_EQ(Run({"compare", kCarol, merged, "--json"}), kFailed);
    const auto json = nlohmann::json::parse(output);
    EXPECT_EQ(json["differences"].size(), static_cast<std::size_t>(lines));
    EXPECT_EQ(json["totals"]["gained"].get<long>() + json["totals"]["lost"].get<long>(), lines);
    EXPECT_EQ(json["differences"][0]["number"], "0") << "the pickup";
    EXPECT_EQ(json["differences"][0]["measure"], 1);
    EXPECT_FALSE(json["same"]);

    std::string robbed = Content(merged);
    const std::string note = "<step>G</step>";
    robbed.replace(robbed.find(note), note.size(), "<step>E</step>");
    EXPECT_EQ(Run({"compare", kCarol, Write("robbed.musicxml", robbed), "--merged"}), kFailed);
    EXPECT_NE(output.find("lost"), output.npos) << output;
}

TEST_F(CommandRun, RunFindsACommandByItsTitle) {
    ASSERT_EQ(Run({"merge", kCarol, "-o", File("merged.musicxml")}), kDone) << errors;
    ASSERT_EQ(Run({"run", kCarol, "-o", File("run.musicxml"), "--command", "Plyweld"}), kDone)
        << errors;
    EXPECT_EQ(Content(File("run.musicxml")), Content(File("merged.musicxml")));
    EXPECT_EQ(Run({"run", kCarol, "--command", "Plywood"}), kFailed);
    EXPECT_EQ(errors, "plyweld: no plug-in has a command Plywood\n");
}

TEST_F(CommandRun, OnlyTheSelectionChanges) {
    ASSERT_EQ(Run({"merge", kCarol, "-o", File("out.musicxml"), "--measures", "2-3", "--staves",
                   "1", "--json"}),
              kDone)
        << errors;
    const auto report = nlohmann::json::parse(output);
    EXPECT_EQ(report["totals"]["stayed"], 1);
    EXPECT_EQ(report["totals"]["stayedBecause"]["noRestToFill"], 1);
    ASSERT_EQ(report["measures"].size(), 2U);
    EXPECT_EQ(report["measures"][0]["measure"], 3);
    EXPECT_EQ(report["measures"][1]["staff"], 1);
    EXPECT_EQ(report["measures"][1]["chordsFormed"], 4);
    const std::string before = Content(kCarol);
    const std::string after = Content(File("out.musicxml"));
    const std::string fifth = "<measure number=\"4\">";  // the pickup measure has number 0
    EXPECT_EQ(after.substr(after.find(fifth)), before.substr(before.find(fifth)));
}

TEST_F(CommandRun, OutputFormatsHoldSameMusic) {
    ASSERT_EQ(Run({"merge", kCarol, "-o", File("out.musicxml"), "--quiet"}), kDone);
    EXPECT_EQ(output, "");
    ASSERT_EQ(Run({"merge", kCarol, "-o", "-"}), kDone);
    EXPECT_EQ(output, Content(File("out.musicxml")));
    EXPECT_NE(errors, "");
    ASSERT_EQ(Run({"merge", kCarol, "-o", File("out.mxl")}), kDone);
    EXPECT_EQ(Content(File("out.mxl")).substr(0, 2), "PK");
    EXPECT_EQ(Run({"compare", File("out.musicxml"), File("out.mxl")}), kDone) << output;
}

TEST_F(CommandRun, ReplaceReportsWhatItClears) {
    // Layer 2 has music in the first measure only.
    const std::string input = Write(
        "in.xml",
        standin::ScoreText({Half("C5") + Half("D5") + Backup(8) + Half("E4", "2") + Half("F4", "2"),
                            Half("G5") + Half("A5")}));
    const std::string target = Write("out.xml", "kept");
    EXPECT_EQ(Run({"merge", input, "-o", target, "--replace"}), kFailed);
    EXPECT_NE(errors.find("would clear 2 notes in 1 measure of layer 1 into which nothing moves, "
                          "first m. 2, Piano"),
              std::string::npos)
        << errors;
    EXPECT_NE(errors.find("--force"), std::string::npos);
    EXPECT_EQ(Content(target), "kept");
    ASSERT_EQ(Run({"merge", input, "-o", target, "--replace", "--measures", "1", "--verify"}),
              kDone)
        << errors;
    EXPECT_NE(output.find("cleared: 2 notes in 1 measure of layer 1\n"), std::string::npos)
        << output;
    EXPECT_NE(output.find("nothing was lost except what Replace cleared"), std::string::npos);
    EXPECT_EQ(Run({"merge", input, "-o", target, "--replace", "--force", "--json"}), kDone);
    EXPECT_EQ(nlohmann::json::parse(output)["totals"]["notesCleared"], 4);
}

TEST_F(CommandRun, DryRunWritesNothing) {
    ASSERT_EQ(Run({"merge", kCarol, "-o", File("out.musicxml")}), kDone);
    const std::string report = output;
    ASSERT_EQ(Run({"merge", kCarol, "--dry-run", "--verify"}), kDone) << errors;
    EXPECT_TRUE(output.starts_with(report)) << output;
    fs::remove(File("out.musicxml"));
    ASSERT_EQ(Run({"merge", kCarol, "-n", "-o", File("out.musicxml")}), kDone);
    EXPECT_FALSE(fs::exists(File("out.musicxml")));
}

TEST_F(CommandRun, MergesSeveralRanges) {
    ASSERT_EQ(Run({"merge", kCarol, "-o", File("out.musicxml"), "--measures", "1,3-4,#10",
                   "--verify", "--json"}),
              kDone)
        << errors;
    const auto report = nlohmann::json::parse(output);
    std::set<int> measures;
    for (const auto& measure : report["measures"]) {
        measures.insert(measure["measure"].get<int>());
    }
    EXPECT_EQ(measures, (std::set{2, 4, 5, 10}));
}

TEST_F(CommandRun, DetailsShowWholeList) {
    std::vector<std::string> measures;
    for (int i = 0; i < 12; ++i) {
        const std::string stays =
            Half("C5") + Half("D5") + Backup(8) + Note({"E4", 8, "whole", "2"});
        measures.push_back(stays);
        measures.push_back(Half("C5") + Half("D5"));
    }
    const std::string input = Write("in.xml", standin::ScoreText(measures));
    ASSERT_EQ(Run({"merge", input, "-o", File("out.xml")}), kDone) << errors;
    EXPECT_NE(output.find("  and 2 more"), std::string::npos) << output;
    ASSERT_EQ(Run({"merge", input, "-o", File("out.xml"), "--details"}), kDone);
    EXPECT_NE(output.find("m. 23, Piano: 1 stays in layer 2"), std::string::npos) << output;
}

TEST_F(CommandRun, FailedRunWritesNothing) {
    const std::string target = Write("out.musicxml", "kept");
    standin::App().faults.stopAtProgress = 3;
    EXPECT_EQ(Run({"merge", kCarol, "-o", target}), kInterrupted);
    EXPECT_NE(errors.find("stopped"), std::string::npos) << errors;
    standin::App().Reset();

    standin::App().faults.refuseKind = standin::FaultPlan::AllOf(standin::HostCall::kSaveTGF);
    EXPECT_EQ(Run({"merge", kCarol, "-o", target}), kFailed);
    EXPECT_NE(errors, "");
    EXPECT_EQ(Content(target), "kept");
}

TEST_F(CommandRun, FailedReportIsFailure) {
    std::cout.setstate(std::ios::badbit);
    EXPECT_EQ(Run({"compare", kCarol, kCarol}), kFailed);
    std::cout.clear();
    EXPECT_NE(errors, "");
}

const std::string kSlurStart = Notations("<slur type=\"start\" number=\"1\"/>");
const std::string kSlurStop = Notations("<slur type=\"stop\" number=\"1\"/>");
const std::string kStem = "<stem default-y=\"5\">up</stem>";
const std::string kSecondVoice = Backup(8) + Half("A4", "2") + Half("B4", "2");

// Merges that lose nothing, although attachments of notes and rests move.
struct LosslessCase {
    const char* name;
    std::vector<std::string> measures;
    std::vector<std::string> options = {};

    friend void PrintTo(const LosslessCase& row, std::ostream* out) { *out << row.name; }
};

const LosslessCase kLossless[] = {
    {"TheStartOfASlurIsCleared",
     {Half("C5") + Half("D5", "1", kSlurStart) + kSecondVoice, Half("E5", "1", kSlurStop)},
     {"--replace", "--measures", "1"}},
    {"TheEndOfASlurIsCleared",
     {Half("E5", "1", kSlurStart), Half("C5", "1", kSlurStop) + Half("D5") + kSecondVoice},
     {"--replace", "--measures", "2"}},
    {"ADirectionBeforeWhatIsCleared",
     {"<direction><direction-type><words>p</words></direction-type><voice>1</voice></direction>" +
      Half("C5") + Half("D5") + kSecondVoice},
     {"--replace"}},
    {"AnExpressionStaysWithItsGraceNote",
     {Half("C5") + Half("D5") + Backup(8) + Half("E4", "2") +
      "<direction><direction-type><words>p</words></direction-type><voice>2</voice></direction>" +
      Note({.duration = 0, .voice = "2", .first = "<grace/>"}) + Half("G4", "2")}},
    {"ASlurToAFilledRest",
     {Half("A5", "1", kSlurStart) + Half("r", "1", kSlurStop) + Backup(8) + Half("r", "2") +
      Half("C5", "2", kFermata)}},
    {"ASlurToRestsFilledWithALongerNote",
     {Half("C4", "1", kSlurStart), Half("r") + Half("r", "1", kSlurStop) + Backup(8) +
                                       Note({.duration = 8, .type = "whole", .voice = "2"})}},
    {"AStemOfALaterNoteOfAChord",
     {Half("A5", "1", kStem) + Backup(4) + Half("A5", "2") + Half("E4", "2", kStem, "<chord/>")}},
    {"ANotesNotationsChangeOrder",
     {Half("A5") +
      Half("C6", "1", Notations(kFinger, " print-object=\"no\"") + Notations(kFinger), "<chord/>") +
      Backup(4) + Half("C5", "2")}},
};

class LosslessMerge : public CommandRun, public testing::WithParamInterface<LosslessCase> {};

TEST_P(LosslessMerge, IsVerified) {
    const LosslessCase& c = GetParam();
    std::vector<std::string> arguments{"merge",   Write("in.xml", standin::ScoreText(c.measures)),
                                       "-o",      File("out.xml"),
                                       "--from",  "2",
                                       "--verify"};
    arguments.insert(arguments.end(), c.options.begin(), c.options.end());
    EXPECT_EQ(Run(arguments), kDone) << errors;
}

INSTANTIATE_TEST_SUITE_P(Cases, LosslessMerge, testing::ValuesIn(kLossless), standin::kByName);

// The <note> of that pitch in the output; each step occurs once.
std::string NoteWithStep(const std::string& xml, char step) {
    const std::size_t at = xml.find(std::string{"<step>"} + step);
    const std::size_t begin = xml.rfind("<note", at);
    constexpr std::string_view kEnd = "</note>";
    return at == std::string::npos ? ""
                                   : xml.substr(begin, xml.find(kEnd, at) + kEnd.size() - begin);
}

// Attachments of a note that joins a chord: the note by its step, and what it must have. Some are
// on the note itself, some on the chord's first note.
struct JoinedCase {
    const char* name;
    std::string measure;
    std::vector<std::pair<char, std::string>> expected;

    friend void PrintTo(const JoinedCase& row, std::ostream* out) { *out << row.name; }
};

const JoinedCase kJoined[] = {
    {"ALineOfTheNoteThatJoins",
     Half("C5") + Half("D5") + Backup(8) +
         Half("A4", "2", Notations("<glissando type=\"start\" number=\"1\"/>")) +
         Half("B4", "2", Notations("<glissando type=\"stop\" number=\"1\"/>")),
     {{'A', "<glissando type=\"start\""}, {'B', "<glissando type=\"stop\""}}},
    {"ALineOfTheChordItself",
     Half("C5", "1", Notations("<slide type=\"start\"/>")) +
         Half("D5", "1", Notations("<slide type=\"stop\"/>")) + kSecondVoice,
     {{'C', "<slide type=\"start\""}, {'D', "<slide type=\"stop\""}}},
    {"ALineWhoseEndsComeTogether",
     Half("C5", "1", Notations("<glissando type=\"start\"/>")) + Backup(4) +
         Half("A4", "2", Notations("<glissando type=\"stop\"/>")),
     {{'C', "<notations>\n    <glissando type=\"start\"/>\n  </notations>"},
      {'A', "<notations>\n    <glissando type=\"stop\"/>\n  </notations>"}}},
    {"LyricsOfOneNumber",
     Half("C5", "1", Lyric("1", "la") + Lyric("2", "lo")) + Half("D5", "1", Lyric("1", "li")) +
         Backup(8) + Half("A4", "2", Lyric("1", "ho")) + Half("B4", "2", Lyric("2", "he")),
     {{'C', Lyric("1", "la")},
      {'C', Lyric("2", "lo")},
      {'C', Lyric("3", "ho")},
      {'D', Lyric("2", "he")}}},
    {"EqualLyricsAreOne",
     Half("C5", "1", Lyric("1", "la")) + Backup(4) + Half("A4", "2", Lyric("1", "la")),
     {{'C', "</type>\n  " + Lyric("1", "la") + "\n</note>"}}},
};

class JoinedNote : public CommandRun, public testing::WithParamInterface<JoinedCase> {};

TEST_P(JoinedNote, KeepsAttachments) {
    const JoinedCase& c = GetParam();
    ASSERT_EQ(Run({"merge", Write("in.xml", standin::ScoreText({c.measure})), "-o", File("out.xml"),
                   "--verify"}),
              kDone)
        << errors;
    const std::string merged = Content(File("out.xml"));
    for (const auto& [step, has] : c.expected) {
        EXPECT_NE(NoteWithStep(merged, step).find(has), std::string::npos)
            << step << ": " << merged;
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, JoinedNote, testing::ValuesIn(kJoined), standin::kByName);

// The fifth voice gets the free layer 2 in its measure, unless the user names layer 2.
TEST_F(CommandRun, FifthVoiceStaysUntouched) {
    std::string four = Half("C5");
    for (const char* voice : {"2", "3", "4"}) {
        four += Backup(4) + Half("C5", voice);
    }
    const std::string input =
        Write("in.xml", standin::ScoreText({four, Half("G5") + Backup(4) + Half("E4", "5")}));
    ASSERT_EQ(Run({"merge", input, "-o", File("out.xml"), "--from", "1", "--to", "2", "--replace"}),
              kDone);
    EXPECT_NE(Content(File("out.xml")).find("<step>E</step>"), std::string::npos);
    ASSERT_EQ(
        Run({"merge", input, "-o", File("out.xml"), "--from", "2", "--measures", "2", "--json"}),
        kDone);
    EXPECT_EQ(nlohmann::json::parse(output)["totals"]["notesMoved"], 0);
    ASSERT_EQ(Run({"merge", input, "-o", File("out.xml"), "--measures", "2", "--json"}), kDone);
    EXPECT_EQ(nlohmann::json::parse(output)["totals"]["chordsFormed"], 1);
}

TEST_F(CommandRun, WarnsOfMistakesInFile) {
    const std::string input = Write("in.xml", standin::ScoreText({Note({}) + Backup(9)}));
    EXPECT_EQ(Run({"merge", input, "-o", File("out.xml")}), kDone);
    EXPECT_NE(errors.find("plyweld: " + input + ":8: warning: a <backup>"), std::string::npos)
        << errors;
    EXPECT_EQ(Run({"merge", input, "-o", File("out.xml"), "--json"}), kDone);
    EXPECT_NE(nlohmann::json::parse(output)["warnings"][0].get<std::string>().find("line 8: a <b"),
              std::string::npos)
        << output;
}

TEST_F(CommandRun, StyledRestCanBeFilled) {
    std::string rest = Half("r", "1", "<stem>none</stem><beam>continue</beam>");
    rest.replace(0, 6, "<note default-x=\"5\">");
    rest.insert(rest.find("<voice>"), "<instrument id=\"I1\"/>");
    const std::string text =
        standin::ScoreText({Half("A5") + rest + Backup(8) + Half("r", "2") + Half("C5", "2")});
    EXPECT_EQ(Run({"merge", Write("in.xml", text), "-o", File("out.xml"), "--verify"}), kDone)
        << errors;
    EXPECT_NE(output.find("1 rest filled"), std::string::npos) << output;
}

TEST_F(CommandRun, LineAcrossBarlineKeepsBothEnds) {
    const std::string ends[] = {"<beam number=\"1\">begin</beam>", "<tuplet type=\"start\"/>",
                                "<beam number=\"1\">end</beam>", "<tuplet type=\"stop\"/>"};
    const auto eighth = [](std::string_view voice, std::string_view more = "") {
        return Note({.duration = 1, .type = "eighth", .voice = voice, .more = more});
    };
    const std::string text = standin::ScoreText(
        {Half("C5") + eighth("1", ends[0] + Notations(ends[1])) + Backup(5) + Half("C4", "2"),
         eighth("1", ends[2] + Notations(ends[3])) + Half("C5") + Backup(5) + eighth("2")});
    ASSERT_EQ(Run({"merge", Write("in.xml", text), "-o", File("out.xml"), "--no-rebeam"}), kDone)
        << errors;
    const std::string merged = Content(File("out.xml"));
    for (const std::string& end : ends) {
        EXPECT_NE(merged.find(end), std::string::npos) << end << " in " << merged;
    }
}

TEST_F(CommandRun, DamagedFileIsRefusedInOneLine) {
    const std::pair<std::string, const char*> cases[] = {
        {File("no such file"), ""},
        {Write("text.xml", "a piano piece"), ":1: "},
        {Write("late.xml", "<score-partwise>\n\n<note/></score-partwise>"), ":3: "},
    };
    for (const auto& [input, says] : cases) {
        EXPECT_EQ(Run({"merge", input, "-o", File("out.xml")}), kUnreadable);
        EXPECT_EQ(std::ranges::count(errors, '\n'), 1) << errors;
        EXPECT_EQ(errors.substr(0, input.size() + 10), "plyweld: " + input + ":");
        EXPECT_NE(errors.find(says), std::string::npos) << errors;
        EXPECT_FALSE(fs::exists(File("out.xml")));
    }
}

TEST_F(CommandRun, ShowPredictsMerge) {
    ASSERT_EQ(Run({"show", kCarol, "--json"}), kDone) << errors;
    const auto shown = nlohmann::json::parse(output);
    EXPECT_EQ(shown["measures"], 21);
    ASSERT_EQ(shown["parts"][0]["staves"].size(), 2U);
    EXPECT_EQ(shown["parts"][0]["staves"][1]["layers"][1]["voice"], "6");
    EXPECT_EQ(shown["parts"][0]["staves"][1]["measuresWithSeveralLayers"], 21);
    EXPECT_EQ(shown["merge"]["totals"]["chordsFormed"], 105);
}

}  // namespace
