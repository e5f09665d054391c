// Tuplets of the file as tuplets of the host, and back.
#include "tests/unit/support/named_cases.h"
#include "tests/unit/tuplet_score.h"

namespace standin {
namespace {

constexpr const char* kTriplet =
    "C4 eighth 12 3:2 [, D4 eighth 12 3:2, E4 eighth 12 3:2 ], r half 72, r quarter 36";

struct TupletRow {
    const char* name;
    std::vector<std::string_view> measures;
    const char* layer;  // of the first measure and staff
    const char* times;  // likewise, where they do not follow from the layer
    int brackets = 1;   // that the score is written with

    friend void PrintTo(const TupletRow& row, std::ostream* out) { *out << row.name; }
};

const TupletRow kTuplets[] = {
    {"Bracketed", {kTriplet}, "(3:2 e:c4 e:d4 e:e4) h:r q:r", "0+341 341+342 683+341"},
    {"OfSeveralValues",
     {"C4 quarter 24 3:2 [, D4 eighth 12 3:2 ], E4 16th 6 3:2 [, F4 eighth 12 3:2, G4 16th 6 3:2, "
      "A4 eighth "
      "12 3:2 ]"},
     "(3:2e q:c4 e:d4) (3:2e s:e4 e:f4 s:g4 e:a4)",
     "0+683 683+341",
     2},
    {"Nested",
     {"C4 quarter 24 3:2 {, D4 eighth 8 9:4 [, E4 eighth 8 9:4, F4 eighth 8 9:4 ], G4 quarter 24 "
      "3:2 }"},
     "(3:2 q:c4 (3:2 e:d4 e:e4 e:f4) q:g4)",
     "0+683 683+227",
     2},
    {"NestedFromTheFirstNote",
     {"D4 eighth 8 9:4 { [, E4 eighth 8 9:4, F4 eighth 8 9:4 ], G4 quarter 24 3:2, A4 quarter 24 "
      "3:2 }"},
     "(3:2q (3:2 e:d4 e:e4 e:f4) q:g4 q:a4)",
     "0+228 228+227",
     2},
    {"Adjacent",
     {"C4 eighth 12 3:2 [, D4 eighth 12 3:2, E4 eighth 12 3:2 ], F4 eighth 12 3:2 [, G4 eighth 12 "
      "3:2, A4 eighth 12 3:2 ]"},
     "(3:2 e:c4 e:d4 e:e4) (3:2 e:f4 e:g4 e:a4)",
     "",
     2},
    {"OfOneNote", {"C4 quarter 24 3:2 [ ], D4 quarter 36"}, "", "0+683 683+1024"},
    {"WithAGraceNote",
     {"C4 eighth 12 3:2 [, B3 eighth g, D4 eighth 12 3:2, E4 eighth 12 3:2 ]"},
     "(3:2 e:c4 ge:b3 e:d4 e:e4)",
     "0+341 341+0 341+342"},
    {"BehindAGraceNote",
     {"B3 eighth g, C4 eighth 12 3:2 [, D4 eighth 12 3:2, E4 eighth 12 3:2 ]"},
     "ge:b3 (3:2 e:c4 e:d4 e:e4)",
     ""},
    {"AsFarAsItGoesOnThisStaff",
     {"C4 eighth 12 3:2 [, C3 eighth 12 3:2 s2, D4 eighth 12 3:2 ], E4 quarter 36"},
     "(3:2 e:c4 e:x e:d4) q:e4",
     ""},
    {"EndedOnTheOtherStaff", {"C4 quarter 24 3:2 [, C3 eighth 12 3:2 ] s2"}, "(3:2e q:c4 e:x)", ""},
    {"ChordOverTwoStaves",
     {"C4 eighth 12 3:2 [, C3 eighth 12 3:2 & s2, D4 eighth 12 3:2, E4 eighth 12 3:2 ], C3 eighth "
      "12 3:2 & s2"},
     "(3:2 e:c4 e:d4 e:e4)",
     "",
     2},
    {"GapInside", {"C4 eighth 12 3:2 [, on 12, E4 eighth 12 3:2 ]"}, "(3:2 e:c4 e:x e:e4)", ""},
    {"WithoutBrackets",
     {"C4 quarter 24 3:2, D4 eighth 12 3:2, E4 eighth 12 3:2, F4 quarter 24 3:2, G4 quarter 36"},
     "(3:2e q:c4 e:d4) (3:2 e:e4 q:f4) q:g4",
     "",
     0},
    {"DottedWithoutBrackets",
     {"C4 eighth 18 3:2, D4 16th 6 3:2, E4 eighth 12 3:2"},
     "",
     "0+512 512+171 683+341",
     0},
    // Each for itself, in whole units.
    {"TooFewWithoutBrackets",
     {"C4 eighth 12 3:2, D4 eighth 12 3:2, E4 quarter 36"},
     "",
     "0+341 341+342 683+1024",
     0},
    {"RatioOfAnotherNumber",
     {"C4 eighth 12 5:3 [, D4 eighth 12 5:3, E4 eighth 12 5:3 ]"},
     "(3:2 e:c4 e:d4 e:e4)",
     ""},
    {"NoRatioInCommon",
     {"C4 eighth 12 3:2 [, D4 eighth 18, E4 eighth 24 3:4 ]"},
     "",
     "0+341 341+512 853+683"},
    {"BracketsThatDoNotClose",
     {"C4 eighth 12 3:2 [, D4 eighth 12 3:2, E4 eighth 12 3:2, F4 quarter 36 }"},
     "",
     "0+341 341+342 683+341 1024+1024"},
    {"CrossingABarline",
     {"C4 half 72, D4 eighth 12 3:2 [, E4 eighth 12 3:2", "F4 eighth 12 3:2 ], G4 quarter 36"},
     "",
     "0+2048 2048+341 2389+342"},
    {"OverlappingBrackets",
     {"C4 eighth 12 3:2 [, D4 eighth 12 3:2 {, E4 eighth 12 3:2 ], F4 quarter 36 }"},
     "",
     "0+341 341+342 683+341 1024+1024",
     2},
    {"SharingTimeWithItsOwnVoice",
     {"C4 eighth 12 3:2 [, back 6, D4 eighth 12 3:2, E4 eighth 12 3:2 ]"},
     "",
     "0+341"},
};

class TupletOfFile : public testing::TestWithParam<TupletRow> {};

TEST_P(TupletOfFile, SurvivesRoundTrip) {
    const TupletRow& c = GetParam();
    const std::string text = TupletScore(c.measures);
    const auto score = Read(text);
    const std::string rebuilt = Rebuilt(*score);
    const auto again = Read(rebuilt);
    for (const auto* either : {&score, &again}) {
        EXPECT_EQ(Layer(**either, 1, 1, 0).substr(0, std::string{c.layer}.size()), c.layer);
        const std::string times = PrintTimes(*(*either)->document, {1, 1, 0});
        EXPECT_EQ(times.substr(0, std::string{c.times}.size()), c.times);
    }
    const std::string written = BracketsIn(rebuilt);
    EXPECT_EQ(std::ranges::count(written, '['), c.brackets) << written;
    EXPECT_EQ(std::ranges::count(written, ']'), c.brackets) << written;
}

INSTANTIATE_TEST_SUITE_P(Cases, TupletOfFile, testing::ValuesIn(kTuplets), kByName);

TEST(Tuplets, AcrossStavesAreWholeOnEach) {
    const auto score =
        Read(TupletScore({"C3 eighth 12 3:2 [ s2, C4 quarter 24 3:2 ], C3 quarter 24 3:2 [ s2, C4 "
                          "eighth 12 3:2 ]"}));
    EXPECT_EQ(Layer(*score, 1, 1, 0), "(3:2 e:x q:c4) (3:2e q:x e:c4)");
    EXPECT_EQ(Layer(*score, 2, 1, 0), "(3:2 e:c3 q:x) (3:2e q:c3 e:x)");
}

}  // namespace
}  // namespace standin
