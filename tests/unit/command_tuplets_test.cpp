// Tuplets and rests in merges of files: complete in both voices.
#include "host/cli/run_command.h"
#include "host/cli/usage/command_line.h"
#include "host/score/application.h"
#include "tests/unit/support/files.h"
#include "tests/unit/support/named_cases.h"
#include "tests/unit/tuplet_score.h"

namespace {

// The output of a merge with these options; empty if there is none.
std::string Merged(const std::string& text, std::vector<std::string> options) {
    standin::App().Reset();
    TemporaryFolder folder;
    const std::string in = (folder / "in.musicxml").string();
    const std::string out = (folder / "out.musicxml").string();
    std::ofstream{in, std::ios::binary} << text;
    std::vector<std::string> arguments{"merge", in, "-o", out, "--quiet", "--verify"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    EXPECT_EQ(standin::cli::RunCommandLine(arguments), standin::cli::kDone);
    return Content(out);
}

const std::string kTriplet =
    "C5 eighth 12 3:2 [, D5 eighth 12 3:2, E5 eighth 12 3:2 ], r half 72, r quarter 36";
const std::string kSame =
    "C4 eighth 12 3:2 v2 [, D4 eighth 12 3:2 v2, E4 eighth 12 3:2 v2 ], r half 72 v2, r quarter 36 "
    "v2";
const std::string kTripletAndNote =
    "C5 eighth 12 3:2 [, D5 eighth 12 3:2, E5 eighth 12 3:2 ], r half 72, A5 quarter 36";
const std::string kSameAndEighths =
    "C4 eighth 12 3:2 v2 [, D4 eighth 12 3:2 v2, E4 eighth 12 3:2 v2 ], r half 72 v2, B3 eighth 18 "
    "v2, B3 eighth 18 v2";
const std::string kBack = ", back 144, ";
constexpr const char* kSextuplet =
    "C5 16th 6 6:4 [, D5 16th 6 6:4, E5 16th 6 6:4, F5 16th 6 6:4, G5 16th 6 6:4, A5 16th 6 6:4 ], "
    "C5 quarter 36, D5 half 72";

using Options = std::vector<std::string>;

struct TupletCase {
    const char* name;
    std::string voices;
    Options options;
    const char* brackets;  // by BracketsIn

    friend void PrintTo(const TupletCase& row, std::ostream* out) { *out << row.name; }
};

const TupletCase kMerges[] = {
    {"WholeForARest",
     kTriplet + kBack + "r whole 144 v2",
     {"--from", "1", "--to", "2"},
     " r[1 r]1 C[1 E]1"},
    {"IntoTheLikeOfIt",
     kTriplet + kBack + kSame,
     {"--from", "all", "--to", "1"},
     " C[1 E]1 r[1 r]1"},
    {"HiddenRestsBehind",
     kTripletAndNote + kBack + kSameAndEighths,
     {"--from", "2", "--to", "1", "--hide-rests"},
     " C[1 E]1 r[1 r]1"},
    {"NoPartOfASextuplet",
     std::string{kSextuplet} + kBack +
         "C4 eighth 18 v2, r eighth 18 v2, r half 72 v2, r quarter 36 v2",
     {"--from", "1", "--to", "2", "--hide-rests"},
     " C[1 A]1"},
    {"OfOneNote",
     "C5 quarter 36, r half 72, r quarter 36" + kBack +
         "C4 quarter 36 v2, A4 quarter 24 3:2 [ ] v2, r eighth 12 3:2 v2, r half 72 v2",
     {"--from", "all", "--to", "1"},
     " A[1 A]1 r[1 r]1"},
    {"PartOnAnotherStaffAlone",
     "C5 quarter 36, E4 half 72 s2, r quarter 36" + kBack +
         "r eighth 12 3:2 v2 [, D3 eighth 12 3:2 v2 s2, r eighth 12 3:2 v2 ], r half 72 v2 s2, r "
         "quarter 36 v2 s2",
     {"--from", "1", "--to", "2"},
     " r[1 r]1"},
    {"BracketsOnOneOfTwoStaves",
     "r quarter 24 3:2, G3 eighth 12 3:2 s2, r half 72, r quarter 36" + kBack +
         "D4 quarter 24 3:2 v2 [, r eighth 12 3:2 v2 s2 ], r half 72 v2, r quarter 36 v2",
     {"--from", "all", "--to", "2"},
     " D[1 G]1"},
    {"IntoOneWithoutBrackets",
     "r eighth 12 3:2, D5 eighth 12 3:2, r eighth 12 3:2 s2, r half 72, r quarter 36" + kBack +
         "r eighth 12 3:2 v2 s2 [, r eighth 12 3:2 v2, E3 eighth 12 3:2 v2 ], r half 72 v2, r "
         "quarter 36 v2",
     {"--from", "2", "--to", "1"},
     " r[1 E]1 r[1 r]1"},
    {"BesideOtherTimesOnTheOtherStaff",
     "C4 eighth 18 s2, r eighth 18, r half 72, r quarter 36" + kBack +
         "G3 quarter 24 3:2 v2 s2 [, F5 eighth 12 3:2 v2 ], r half 72 v2, r quarter 36 v2",
     {"--from", "2", "--to", "1"},
     " r[1 F]1 G[1 r]1"},
    {"InnerOneIntoTheSameOuterOne",
     "C5 quarter 24 3:2 [, r quarter 24 3:2, G5 quarter 24 3:2 ], r half 72" + kBack +
         "r quarter 24 3:2 { v2, D4 eighth 8 9:4 v2 [, E4 eighth 8 9:4 v2, F4 eighth 8 9:4 v2 ], r "
         "quarter 24 3:2 v2 }, r half 72 v2",
     {"--from", "2", "--to", "1"},
     " C[1 D[2 F]2 G]1 r[2 r[1 r]1 r]2"},
};

class MergedTuplet : public testing::TestWithParam<TupletCase> {};

TEST_P(MergedTuplet, KeepsWholeBrackets) {
    const TupletCase& c = GetParam();
    const std::string merged = Merged(standin::TupletScore({c.voices}), c.options);
    EXPECT_EQ(standin::BracketsIn(merged), c.brackets);
}

INSTANTIATE_TEST_SUITE_P(Cases, MergedTuplet, testing::ValuesIn(kMerges), standin::kByName);

// Hidden rests need no visible bracket.
TEST(TupletMerges, HideTheBracketsOfHiddenRests) {
    const std::string merged =
        Merged(standin::TupletScore({kMerges[2].voices}), kMerges[2].options);
    EXPECT_NE(merged.find("show-number=\"none\" bracket=\"no\""), merged.npos) << merged;
}

// Rests that mirror the source's rhythm are as long as its notes, however fine the divisions.
TEST(TupletMerges, KeepTimesInFineDivisions) {
    std::string text = standin::TupletScore({kTripletAndNote});
    text.replace(text.find(">36</div"), 3, ">10080");
    for (std::size_t at = 0; (at = text.find("<duration>", at)) != text.npos; ++at) {
        const std::size_t digits = at + std::string_view{"<duration>"}.size();
        const std::size_t count = text.find('<', digits) - digits;
        text.replace(digits, count, std::to_string(std::stoi(text.substr(digits, count)) * 280));
    }
    const std::string merged = Merged(text, {"--from", "1", "--to", "2", "--from-beat", "2"});
    std::size_t thirds = 0;
    for (std::size_t at = 0; (at = merged.find(">3360<", at)) != merged.npos; ++at) {
        ++thirds;
    }
    EXPECT_EQ(thirds, 6U) << merged;
}

std::ptrdiff_t CountOf(const std::string& text, const char* pattern) {
    const std::regex expression{pattern};
    return std::distance(std::sregex_iterator{text.begin(), text.end(), expression}, {});
}

// Rests that mirror the source's rhythm have the ratio of its tuplets, not the simplest one.
TEST(TupletMerges, MirrorASextupletInItsRatio) {
    const std::string merged = Merged(
        standin::TupletScore({"C5 16th 6 6:4 [, D5 16th 6 6:4, E5 16th 6 6:4, F3 16th 6 6:4 s2, G5 "
                              "16th 6 6:4, A5 16th 6 6:4 ], C5 quarter 36, D5 half 72"}),
        {"--from", "all", "--to", "2", "--from-beat", "1.5", "--staves", "1-1"});
    EXPECT_EQ(CountOf(merged, "<actual-notes>6<"), 12) << merged;
    EXPECT_EQ(CountOf(merged, "<actual-notes>3<"), 0) << merged;
}

// A voice comes to this staff after nine 16ths: a half and a 16th rest take their time.
TEST(RestMerges, WriteRestsThatHaveNoteValues) {
    const std::string merged =
        Merged(standin::TupletScore(
                   {std::string{"E4 half 72 s2, F4 16th 9 s2, C5 quarter 36, D4 eighth 18 s2, F4 "
                                "16th 9 s2"} +
                    kBack + "C3 whole 144 v5 s2"}),
               {"--from", "all", "--to", "2", "--from-beat", "1.5", "--staves", "1-1"});
    EXPECT_EQ(CountOf(merged, "<rest/>"), 3) << merged;
    EXPECT_EQ(CountOf(merged, "</voice>\\s*<type>"), 9) << merged;
}

}  // namespace
