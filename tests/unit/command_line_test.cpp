#include "host/cli/usage/command_line.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>

#include "host/cli/commands/selection.h"
#include "host/cli/usage/option_table.h"

namespace {

using namespace standin;
using namespace standin::cli;

std::vector<std::string> Words(const std::string& line) {
    std::istringstream stream{line};
    return {std::istream_iterator<std::string>{stream}, {}};
}

MergeCommand ParseMerge(const std::string& options) {
    auto parsed = ParseCommandLine(Words("merge in.xml -o out.xml " + options));
    EXPECT_TRUE(std::holds_alternative<Command>(parsed));
    return std::get<MergeCommand>(std::get<Command>(parsed));
}

// The first six words of the record; later ones are switches.
using Record = std::array<u8, 12>;
constexpr u8 kSize = sizeof(MergeOptions);

Record RecordOf(const MergeOptions& options) {
    Record record{};
    std::memcpy(record.data(), &options, record.size());
    return record;
}

// Each switch: the option sets its word and no other.
TEST(CommandLine, SwitchesSetTheirWord) {
    const auto words = [](const MergeOptions& options) {
        std::vector<u16> values;
        for (const MergeSwitch& each : kMergeSwitches) {
            values.push_back(options.*each.member);
        }
        return values;
    };
    std::vector<u16> expected = words({});
    std::size_t i = 0;
#define MERGE_SWITCH(Name, member, initial, control, option, whenGiven, ...) \
    expected[i] = whenGiven;                                                 \
    EXPECT_NE(whenGiven, initial);                                           \
    EXPECT_EQ(words(ParseMerge(option).options), expected) << (option);      \
    expected[i++] = initial;
#include "shell/options/merge_switches.inc"
}

TEST(CommandLine, OptionsReachTheRecord) {
    EXPECT_EQ(RecordOf(ParseMerge("").options),
              (Record{kSize, 0, 0xFF, 0xFF, 0, 0, 0, 0, 1, 0, 0, 0}));
    const MergeCommand merge =
        ParseMerge("--from 3 --to 4 --replace --hide-rests --no-rebeam --verify --json");
    EXPECT_EQ(RecordOf(merge.options), (Record{kSize, 0, 2, 0, 3, 0, 1, 0, 0, 0, 1, 0}));
    EXPECT_TRUE(merge.verify);
    EXPECT_TRUE(merge.json);
}

// The one line on standard error; the exit code must be that of wrong usage.
std::string RefusalOf(const std::string& line) {
    testing::internal::CaptureStderr();
    const auto parsed = ParseCommandLine(Words(line));
    std::string text = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(std::holds_alternative<ExitCode>(parsed) && std::get<ExitCode>(parsed) == kUsage);
    EXPECT_TRUE(text.starts_with("plyweld: ")) << text;
    EXPECT_EQ(std::ranges::count(text, '\n'), 1) << text;
    return text;
}

TEST(CommandLine, WordsAfterTwoDashesAreFiles) {
    for (const char* line :
         {"merge -o out.xml -- -in.xml", "merge --output=out.xml --json -- -in.xml"}) {
        const auto parsed = ParseCommandLine(Words(line));
        ASSERT_TRUE(std::holds_alternative<Command>(parsed)) << line;
        EXPECT_EQ(std::get<MergeCommand>(std::get<Command>(parsed)).input, "./-in.xml") << line;
    }
    const auto parsed = ParseCommandLine(Words("merge --jobs 2 -o folder -- a.xml --json - --"));
    EXPECT_EQ(std::get<BatchCommand>(std::get<Command>(parsed)).inputs,
              (std::vector<std::string>{"a.xml", "./--json", "-", "./--"}));
}

struct WrongLine {
    const char* name;
    const char* line;
    const char* says;
};

constexpr WrongLine kWrongLines[] = {
    {"MisspeltCommand", "mrege in.xml", "unknown command mrege; did you mean merge?"},
    {"UnlikeAnyCommand", "unite in.xml", "unknown command unite ("},
    {"MisspeltOptionBeforeWhatIsMissing", "merge in.xml --hide-rest", "did you mean --hide-rests?"},
    {"MisspeltOptionWithValue", "merge a -o b.xml --mesures=5-12", "did you mean --measures?"},
    {"MissingInput", "merge -o out.xml", "IN is missing"},
    {"MissingOutput", "merge in.xml", "-o OUT is missing"},
    {"SeveralWithoutFolder", "merge a.xml b.xml", "-o FOLDER is missing"},
    {"SeveralOntoStandardOutput", "merge a.xml b.xml -o -", "need an output folder"},
    {"OutputAndInPlace", "merge a.xml --in-place -o b", "--in-place takes no -o"},
    {"NoJobs", "merge a.xml b.xml -o c --jobs 0", "--jobs: 0 is not a whole number of at least 1"},
    {"MissingSecondScore", "compare a.xml", "B is missing"},
    {"FirstOfTooMany", "compare a b c d", "unexpected argument c"},
    {"MissingValue", "merge a -o b.xml --to", "--to needs a value"},
    {"ValueOfAFlag", "merge a -o b.xml --json=3", "--json takes no value"},
    {"GivenTwice", "merge a -o b.xml -o c.xml", "--output is given more than once"},
    {"LayerThatIsNone", "merge a -o b.xml --from 5", "--from: 5 is not one of all, 1, 2, 3, 4"},
    {"DestinationAll", "merge a -o b.xml --to all", "--to: all"},
    {"SameLayer", "merge a -o b.xml --from 2 --to 2", "the same layer"},
    {"RangeBackwards", "merge a -o b.xml --staves 7-5", "7-5 is not a range"},
    {"RangeFromZero", "merge a -o b.xml --staves 0-5", "0-5 is not a range"},
    {"RangeWithMore", "merge a -o b.xml --staves 5-12x", "5-12x is not a range"},
    {"RangeTooLarge", "merge a -o b.xml --staves 1-99999", "1-99999 is not a range"},
    {"MeasureMissingInAList", "merge a -o b.xml --measures 1,,3", "1,,3 is not a list"},
    {"MeasureWithoutItsPlace", "merge a -o b.xml --measures 1-#", "1-# is not a list"},
    {"BeatBeforeTheFirst", "merge a -o b.xml --from-beat 0.5", "0.5 is not a beat"},
    {"BeatThatIsNoNumber", "merge a -o b.xml --from-beat nan", "nan is not a beat"},
    {"BeatTooLarge", "merge a -o b.xml --to-beat 1001", "1001 is not a beat"},
    {"OutputOfAnotherKind", "merge a -o b.pdf", "b.pdf: the output must be"},
    {"HelpForNothing", "help mrege", "mrege is not one of"},
};

class WrongUsage : public testing::TestWithParam<WrongLine> {};

TEST_P(WrongUsage, IsRefusedInOneLine) {
    EXPECT_NE(RefusalOf(GetParam().line).find(GetParam().says), std::string::npos)
        << RefusalOf(GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(Lines, WrongUsage, testing::ValuesIn(kWrongLines),
                         [](const auto& row) { return std::string{row.param.name}; });

TEST(CommandLine, RefusesInUserLanguage) {
    SetLanguage(Language::kSpanish);
    EXPECT_NE(RefusalOf("mrege in.xml").find("¿quiso decir merge?"), std::string::npos);
    SetLanguage(Language::kEnglish);
}

// What is printed on standard output; nothing goes wrong.
std::string TextFor(const std::string& line) {
    testing::internal::CaptureStdout();
    const auto parsed = ParseCommandLine(Words(line));
    EXPECT_TRUE(std::holds_alternative<ExitCode>(parsed) && std::get<ExitCode>(parsed) == kDone);
    return testing::internal::GetCapturedStdout();
}

TEST(CommandLine, HelpShowsEveryOption) {
    EXPECT_EQ(TextFor(""), TextFor("help"));
    EXPECT_EQ(TextFor(""), TextFor("-h"));
    EXPECT_EQ(TextFor("merge --help"), TextFor("help merge"));
    const std::string help = TextFor("help merge");
    const std::string manual = TextFor("man");
    for (const OptionRow& row : FindCommand("merge")->options) {
        EXPECT_NE(help.find(row.LongName()), std::string::npos) << row.names;
        EXPECT_NE(manual.find(std::string{Say(row.help)}.substr(0, 8)), std::string::npos);
        for (const char* shell : {"bash", "zsh", "fish"}) {
            const std::string script = TextFor(std::string{"completion "} + shell);
            const std::string name = row.IsArgument() ? "" : row.LongName().substr(2);
            EXPECT_NE(script.find(name), std::string::npos) << shell << ' ' << name;
        }
    }
    EXPECT_NE(TextFor("-V").find(PLYWELD_VERSION), std::string::npos);
}

TEST(CommandLine, ColorsAreForTerminalsUnlessAskedFor) {
    EXPECT_EQ(TextFor("help merge").find('\x1b'), std::string::npos) << "this is not a terminal";
    for (const char* line : {"--color always help merge", "help merge --color=always"}) {
        EXPECT_NE(TextFor(line).find("\x1b[1mOptions:\x1b[0m"), std::string::npos) << line;
    }
    EXPECT_NE(RefusalOf("merge --color never").find("plyweld: IN"), std::string::npos);
    EXPECT_NE(RefusalOf("merge --color maybe").find("maybe is not one of"), std::string::npos);
}

// The score has three measures, printed as 0 to 2, the second in 6/8, and a part of one staff
// before one of two.
const struct {
    const char* options;
    std::vector<EREGION> expected;
} kSelections[] = {
    {"", {{0, 1, 1, 0, 0, 3, 3, kEndOfMeasure}}},
    {"--measures 1", {{0, 1, 2, 0, 0, 3, 2, kEndOfMeasure}}},
    {"--measures #1", {{0, 1, 1, 0, 0, 3, 1, kEndOfMeasure}}},
    {"--measures 1-", {{0, 1, 2, 0, 0, 3, 3, kEndOfMeasure}}},
    {"--measures 0,#3",
     {{0, 1, 1, 0, 0, 3, 1, kEndOfMeasure}, {0, 1, 3, 0, 0, 3, 3, kEndOfMeasure}}},
    {"--staves 2-2", {{0, 2, 1, 0, 0, 2, 3, kEndOfMeasure}}},
    {"--part Organ", {{0, 2, 1, 0, 0, 3, 3, kEndOfMeasure}}},
    {"--measures 0-0 --from-beat 2 --to-beat 3", {{0, 1, 1, 1024, 0, 3, 1, 3071}}},
    {"--measures 0-1 --from-beat 2.5 --to-beat 2", {{0, 1, 1, 1536, 0, 3, 2, 1023}}},
};

TEST(Selection, FollowsMeasuresBeatsAndStaves) {
    Document document{1, u"score"};
    for (const u16 staff : {u16{4}, u16{7}, u16{9}}) {
        document.AddStaff(staff);
    }
    document.AddMeasure(4, 1024);
    document.AddMeasure(6, 512);
    document.AddMeasure(4, 1024);
    for (u16 measure = 1; measure <= 3; ++measure) {
        document.SetMeasureNumberText(measure, {static_cast<char16_t>(u'0' + measure - 1)});
    }
    std::vector<ScorePart> parts(2);
    parts[0].name = "Flute";
    parts[0].staves.resize(1);
    parts[1].name = "Organ";
    parts[1].staves.resize(2);
    for (const auto& c : kSelections) {
        const auto found = SelectionsIn(document, parts, ParseMerge(c.options).selection);
        ASSERT_TRUE(std::holds_alternative<std::vector<EREGION>>(found)) << c.options;
        const auto& regions = std::get<std::vector<EREGION>>(found);
        ASSERT_EQ(regions.size(), c.expected.size()) << c.options;
        EXPECT_EQ(std::memcmp(regions.data(), c.expected.data(), regions.size() * sizeof(EREGION)),
                  0)
            << c.options;
    }
    for (const auto& [nothing, says] :
         {std::pair{"--measures 4-5", "numbered 0 to 2"},
          {"--measures #4", "the last one is #3"},
          {"--measures 2-1", "ends before"},
          {"--staves 4", "the last one is 3"},
          {"--part organ", "did you mean Organ?"},
          {"--measures 0-2 --from-beat 5", "measure 0 ends"},
          {"--measures 1-1 --from-beat 7", "measure 1 ends"},
          {"--measures 0 --from-beat 3 --to-beat 1", "ends before"}}) {
        const auto found = SelectionsIn(document, parts, ParseMerge(nothing).selection);
        ASSERT_TRUE(std::holds_alternative<std::string>(found)) << nothing;
        EXPECT_NE(std::get<std::string>(found).find(says), std::string::npos)
            << std::get<std::string>(found);
    }
}

}  // namespace
