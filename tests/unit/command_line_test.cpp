#include "host/cli/command_line.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <gtest/gtest.h>

#include "host/cli/selection.h"

namespace {

using namespace standin;
using namespace standin::cli;

MergeCommand ParseMerge(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"merge", "in.xml", "-o", "out.xml"});
    auto parsed = ParseCommandLine(std::move(arguments));
    EXPECT_TRUE(std::holds_alternative<Command>(parsed));
    return std::get<MergeCommand>(std::get<Command>(parsed));
}

TEST(CommandLine, OptionsReachTheRecord) {
    using Record = std::array<u8, 12>;
    EXPECT_EQ(std::bit_cast<Record>(ParseMerge({}).options),
              (Record{12, 0, 0xFF, 0xFF, 0, 0, 0, 0, 1, 0, 0, 0}));
    const MergeCommand merge = ParseMerge({"--from", "3", "--to", "4", "--replace", "--hide-rests",
                                           "--no-rebeam", "--verify", "--json"});
    EXPECT_EQ(std::bit_cast<Record>(merge.options), (Record{12, 0, 2, 0, 3, 0, 1, 0, 0, 0, 1, 0}));
    EXPECT_TRUE(merge.verify);
    EXPECT_TRUE(merge.json);
}

TEST(CommandLine, WrongUsageIsRefused) {
    using Words = std::vector<std::string>;
    std::vector<Words> cases = {{}, {"unite", "in.xml"}, {"compare", "a.xml"}};
    cases.push_back({"merge", "in.xml"});         // no output
    cases.push_back({"merge", "-o", "out.xml"});  // no input
    for (const Words& option : {Words{"--from", "5"},
                                {"--to", "all"},
                                {"--measures", "7-5"},
                                {"--measures", "0-5"},
                                {"--measures", "5-12x"},
                                {"--measures", "1-99999"},
                                {"--from-beat", "0.5"},
                                {"--from-beat", "nan"},
                                {"--to-beat", "1001"}}) {
        cases.push_back({"merge", "in.xml", "-o", "o", option[0], option[1]});
    }
    for (const auto& arguments : cases) {
        testing::internal::CaptureStderr();
        const auto parsed = ParseCommandLine(arguments);
        const std::string text = testing::internal::GetCapturedStderr();
        ASSERT_TRUE(std::holds_alternative<ExitCode>(parsed)) << testing::PrintToString(arguments);
        EXPECT_EQ(std::get<ExitCode>(parsed), kUsage);
        EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1) << text;
    }
}

// The score has three measures, the second in 6/8, and two staves.
const struct {
    std::vector<std::string> arguments;
    EREGION expected;
} kSelections[] = {
    {{}, {0, 1, 1, 0, 0, 2, 3, kEndOfMeasure}},
    {{"--measures", "2"}, {0, 1, 2, 0, 0, 2, 2, kEndOfMeasure}},
    {{"--measures", "2-"}, {0, 1, 2, 0, 0, 2, 3, kEndOfMeasure}},
    {{"--measures", "2-9"}, {0, 1, 2, 0, 0, 2, 3, kEndOfMeasure}},
    {{"--staves", "2-2"}, {0, 2, 1, 0, 0, 2, 3, kEndOfMeasure}},
    {{"--measures", "1-1", "--from-beat", "2", "--to-beat", "3"}, {0, 1, 1, 1024, 0, 2, 1, 3071}},
    {{"--measures", "1-2", "--from-beat", "2.5", "--to-beat", "2"}, {0, 1, 1, 1536, 0, 2, 2, 1023}},
};

TEST(Selection, FollowsMeasuresBeatsAndStaves) {
    Document document{1, u"score"};
    document.AddStaff(4);
    document.AddStaff(7);
    document.AddMeasure(4, 1024);
    document.AddMeasure(6, 512);
    document.AddMeasure(4, 1024);
    for (const auto& c : kSelections) {
        SCOPED_TRACE(testing::PrintToString(c.arguments));
        const auto found = SelectionIn(document, ParseMerge(c.arguments).selection);
        ASSERT_TRUE(std::holds_alternative<EREGION>(found));
        const auto& region = std::get<EREGION>(found);
        EXPECT_EQ(std::memcmp(&region, &c.expected, sizeof region), 0);
    }
    using Words = std::vector<std::string>;
    for (const Words& nothing : {Words{"--measures", "4-5"},
                                 {"--staves", "3"},
                                 {"--measures", "1-3", "--from-beat", "5"},
                                 {"--measures", "2-2", "--from-beat", "7"},
                                 {"--measures", "1-1", "--from-beat", "3", "--to-beat", "1"}}) {
        EXPECT_TRUE(std::holds_alternative<std::string>(
            SelectionIn(document, ParseMerge(nothing).selection)));
    }
}

}  // namespace
