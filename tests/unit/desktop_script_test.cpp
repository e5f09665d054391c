// Parsing of scripts, and the words for the contents of a layer.
#include "host/desktop/grid/layer_strip.h"
#include "host/desktop/script/byte_pattern.h"
#include "host/desktop/script/script_line.h"
#include "tests/unit/support/stand_in.h"

namespace standin::desktop {
namespace {

using Words = std::vector<std::string>;

TEST(Script, SplitsLinesIntoWords) {
    const ScriptText script = ReadScript(
        "# a comment\n"
        "\n"
        "  expect text 1001 \"a \\\"b\\\" \\\\ c\\nd\"  # and why\r\n"
        "click 1\r\n"
        "type \"\"",
        ScriptLanguage::kEnglish);
    EXPECT_EQ(script.problem, "");
    ASSERT_EQ(script.lines.size(), 3U);
    EXPECT_EQ(script.lines[0].number, 3);
    EXPECT_EQ(script.lines[0].words, (Words{"expect", "text", "1001", "a \"b\" \\ c\nd"}));
    EXPECT_EQ(script.lines[1].words, (Words{"click", "1"}));
    EXPECT_EQ(script.lines[2].words, (Words{"type", ""}));
}

TEST(Script, KeepsLinesOfItsLanguage) {
    const auto spanish =
        ReadScript("click 1\nen: click 2\n  es: click 3\n", ScriptLanguage::kSpanish).lines;
    ASSERT_EQ(spanish.size(), 2U);
    EXPECT_EQ(spanish[1].words[1], "3");
    EXPECT_EQ(spanish[1].number, 3);
}

TEST(Script, ReadsPathsAndRanges) {
    EXPECT_EQ(ReadScript("click 1\ntype \"abc\n", ScriptLanguage::kEnglish).problem,
              "line 2: a quote is not closed");
    EXPECT_EQ(SplitText("Plug-ins > Plyweld > Slow...", '>'),
              (Words{"Plug-ins", "Plyweld", "Slow..."}));
    EXPECT_EQ(SplitText("", '>'), Words{""});
    EXPECT_EQ(ReadRange("3-5").value().first, 3);
    EXPECT_EQ(ReadRange("3-5").value().last, 5);
    EXPECT_EQ(ReadRange("7").value().last, 7);
    for (const char* bad : {"", "0", "5-3", "3-", "-3", "3-x", "3 - 4"}) {
        EXPECT_FALSE(ReadRange(bad)) << bad;
    }
}

TEST(BytePattern, MatchesBytes) {
    EXPECT_EQ(BytesOf("0c00 ff*3 'A\u00f1' 00"),
              (std::vector<unsigned char>{0x0c, 0, 0xff, 0xff, 0xff, 'A', 0xc3, 0xb1, 0}));
    EXPECT_EQ(BytesOf(""), std::vector<unsigned char>{});
    EXPECT_TRUE(Matches("0c?? ?f", {0x0c, 0x55, 0x3f}));
    EXPECT_FALSE(Matches("0c?? ?f", {0x0c, 0x55, 0x30}));
    EXPECT_FALSE(Matches("0c??", {0x0c, 0x55, 0x30})) << "longer";
    EXPECT_FALSE(Matches("0c?? 00", {0x0c, 0x55})) << "shorter";
    for (const char* bad : {"0", "0g", "'open", "00*x", "00*-1", "??"}) {
        EXPECT_FALSE(BytesOf(bad)) << bad;
    }
}

TEST(LayerStrip, NamesAndPlacesEntries) {
    StandIn host;
    host.Layer(1, 1, 0, "ge:c4 q.:c4,e4 e:r (3:2 e:c4 e:d4 e:e4) q:x");
    const Frame* frame = host.Score().FindFrame(host.Key(1, 1, 0));
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(StripText(*frame), "ge1 q.2 er e1 e1 e1 qr-");
    const auto strip = StripOf(*frame, 4096);
    ASSERT_EQ(strip.size(), 7U);
    EXPECT_EQ(strip[0].kind, StripKind::kGrace);
    EXPECT_DOUBLE_EQ(strip[6].begin, 0.75);
    EXPECT_DOUBLE_EQ(strip[6].end, 1.0);
    EXPECT_TRUE(StripOf(*frame, 0).empty());
}

}  // namespace
}  // namespace standin::desktop
