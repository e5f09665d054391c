#include "host/cli/command_line.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>

#include "host/cli/selection.h"

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

TEST(CommandLine, OptionsReachTheRecord) {
    using Record = std::array<u8, 12>;
    EXPECT_EQ(std::bit_cast<Record>(ParseMerge("").options),
              (Record{12, 0, 0xFF, 0xFF, 0, 0, 0, 0, 1, 0, 0, 0}));
    const MergeCommand merge =
        ParseMerge("--from 3 --to 4 --replace --hide-rests --no-rebeam --verify --json");
    EXPECT_EQ(std::bit_cast<Record>(merge.options), (Record{12, 0, 2, 0, 3, 0, 1, 0, 0, 0, 1, 0}));
    EXPECT_TRUE(merge.verify);
    EXPECT_TRUE(merge.json);
}

TEST(CommandLine, WrongUsageIsRefused) {
    for (const char* line :
         {"", "unite in.xml", "compare a.xml", "merge in.xml", "merge -o out.xml",
          "merge a -o b --from 5", "merge a -o b --to all", "merge a -o b --measures 7-5",
          "merge a -o b --measures 0-5", "merge a -o b --measures 5-12x",
          "merge a -o b --measures 1-99999", "merge a -o b --from-beat 0.5",
          "merge a -o b --from-beat nan", "merge a -o b --to-beat 1001"}) {
        testing::internal::CaptureStderr();
        const auto parsed = ParseCommandLine(Words(line));
        const std::string text = testing::internal::GetCapturedStderr();
        ASSERT_TRUE(std::holds_alternative<ExitCode>(parsed)) << line;
        EXPECT_EQ(std::get<ExitCode>(parsed), kUsage);
        EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1) << text;
    }
}

// The score has three measures, the second in 6/8, and two staves.
const struct {
    const char* options;
    EREGION expected;
} kSelections[] = {
    {"", {0, 1, 1, 0, 0, 2, 3, kEndOfMeasure}},
    {"--measures 2", {0, 1, 2, 0, 0, 2, 2, kEndOfMeasure}},
    {"--measures 2-", {0, 1, 2, 0, 0, 2, 3, kEndOfMeasure}},
    {"--measures 2-9", {0, 1, 2, 0, 0, 2, 3, kEndOfMeasure}},
    {"--staves 2-2", {0, 2, 1, 0, 0, 2, 3, kEndOfMeasure}},
    {"--measures 1-1 --from-beat 2 --to-beat 3", {0, 1, 1, 1024, 0, 2, 1, 3071}},
    {"--measures 1-2 --from-beat 2.5 --to-beat 2", {0, 1, 1, 1536, 0, 2, 2, 1023}},
};

TEST(Selection, FollowsMeasuresBeatsAndStaves) {
    Document document{1, u"score"};
    document.AddStaff(4);
    document.AddStaff(7);
    document.AddMeasure(4, 1024);
    document.AddMeasure(6, 512);
    document.AddMeasure(4, 1024);
    for (const auto& c : kSelections) {
        const auto found = SelectionIn(document, ParseMerge(c.options).selection);
        ASSERT_TRUE(std::holds_alternative<EREGION>(found)) << c.options;
        const auto& region = std::get<EREGION>(found);
        EXPECT_EQ(std::memcmp(&region, &c.expected, sizeof region), 0) << c.options;
    }
    for (const char* nothing :
         {"--measures 4-5", "--staves 3", "--measures 1-3 --from-beat 5",
          "--measures 2-2 --from-beat 7", "--measures 1-1 --from-beat 3 --to-beat 1"}) {
        EXPECT_TRUE(std::holds_alternative<std::string>(
            SelectionIn(document, ParseMerge(nothing).selection)));
    }
}

}  // namespace
