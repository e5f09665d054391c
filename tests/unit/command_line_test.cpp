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

TEST(CommandLine, DefaultsAreThePluginsOwn) {
    const MergeCommand merge = ParseMerge({});
    const std::array<u8, 12> expected{12, 0, 0xFF, 0xFF, 0, 0, 0, 0, 1, 0, 0, 0};
    EXPECT_EQ((std::bit_cast<std::array<u8, 12>>(merge.options)), expected);
    EXPECT_FALSE(merge.selection.lastMeasure);
    EXPECT_FALSE(merge.selection.lastBeat);
}

TEST(CommandLine, EveryOptionReachesTheRecord) {
    const MergeCommand merge = ParseMerge({"--from", "3", "--to", "4", "--replace", "--hide-rests",
                                           "--no-rebeam", "--verify", "--json"});
    const std::array<u8, 12> expected{12, 0, 2, 0, 3, 0, 1, 0, 0, 0, 1, 0};
    EXPECT_EQ((std::bit_cast<std::array<u8, 12>>(merge.options)), expected);
    EXPECT_TRUE(merge.verify);
    EXPECT_TRUE(merge.json);
}

TEST(CommandLine, WrongUsageIsRefused) {
    const std::vector<std::string> cases[] = {
        {},
        {"unite", "in.xml"},
        {"merge", "in.xml"},                                      // no output
        {"merge", "-o", "out.xml"},                               // no input
        {"merge", "in.xml", "-o", "o", "--from", "5"},            // no such layer
        {"merge", "in.xml", "-o", "o", "--to", "all"},            // one destination only
        {"merge", "in.xml", "-o", "o", "--measures", "7-5"},      // backwards
        {"merge", "in.xml", "-o", "o", "--measures", "0-5"},      // counted from 1
        {"merge", "in.xml", "-o", "o", "--measures", "5-12x"},    // not a number
        {"merge", "in.xml", "-o", "o", "--measures", "1-99999"},  // beyond any score
        {"merge", "in.xml", "-o", "o", "--from-beat", "0.5"},
        {"compare", "a.xml"},
    };
    for (const auto& arguments : cases) {
        testing::internal::CaptureStderr();
        const auto parsed = ParseCommandLine(arguments);
        const std::string text = testing::internal::GetCapturedStderr();
        ASSERT_TRUE(std::holds_alternative<ExitCode>(parsed)) << testing::PrintToString(arguments);
        EXPECT_EQ(std::get<ExitCode>(parsed), kUsage);
        EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1) << text;
    }
}

struct SelectionCase {
    const char* name;
    std::vector<std::string> arguments;
    EREGION expected;
};

// The score has three measures, the second in 6/8, and two staves.
const SelectionCase kSelections[] = {
    {"Everything", {}, {0, 1, 1, 0, 0, 2, 3, kEndOfMeasure}},
    {"OneMeasure", {"--measures", "2"}, {0, 1, 2, 0, 0, 2, 2, kEndOfMeasure}},
    {"OpenEnd", {"--measures", "2-"}, {0, 1, 2, 0, 0, 2, 3, kEndOfMeasure}},
    {"EndBeyondTheScore", {"--measures", "2-9"}, {0, 1, 2, 0, 0, 2, 3, kEndOfMeasure}},
    {"Staff", {"--staves", "2-2"}, {0, 2, 1, 0, 0, 2, 3, kEndOfMeasure}},
    {"Beats",
     {"--measures", "1-1", "--from-beat", "2", "--to-beat", "3"},
     {0, 1, 1, 1024, 0, 2, 1, 3071}},
    {"BeatsOfBothMeters",
     {"--measures", "1-2", "--from-beat", "2.5", "--to-beat", "2"},
     {0, 1, 1, 1536, 0, 2, 2, 1023}},
};

TEST(Selection, FollowsMeasuresBeatsAndStaves) {
    Document document{1, u"score"};
    document.AddStaff(4);
    document.AddStaff(7);
    document.AddMeasure(4, 1024);
    document.AddMeasure(6, 512);
    document.AddMeasure(4, 1024);
    for (const SelectionCase& c : kSelections) {
        const auto found = SelectionIn(document, ParseMerge(c.arguments).selection);
        ASSERT_TRUE(std::holds_alternative<EREGION>(found)) << c.name;
        const auto& region = std::get<EREGION>(found);
        EXPECT_EQ(std::memcmp(&region, &c.expected, sizeof region), 0) << c.name;
    }
    for (const std::vector<std::string>& nothing :
         {std::vector<std::string>{"--measures", "4-5"},
          {"--staves", "3"},
          {"--measures", "1-1", "--from-beat", "3", "--to-beat", "1"}}) {
        EXPECT_TRUE(std::holds_alternative<std::string>(
            SelectionIn(document, ParseMerge(nothing).selection)));
    }
}

}  // namespace
