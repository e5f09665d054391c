// Files that the second reader refuses, and how it reads unusual ones.
#include "tests/unit/readback_support.h"

namespace standin {
namespace {

TEST(SecondReading, RefusesInOneLine) {
    const struct {
        std::string bytes;
        std::string says;
        std::size_t line;
    } cases[] = {
        {"", "the file is not well-formed XML: ", 1},
        {"<score-partwise>\n<part>\n</score-partwise>", "the file is not well-formed XML: ", 3},
        {"<score-timewise/>", "the file is not a partwise MusicXML score", 0},
        {"PK no archive", "the file is a damaged archive", 0},
        {ScoreText(
             {"<attributes><divisions>999999937</divisions></attributes>" + Note({.duration = 1}) +
              "<attributes><divisions>999999929</divisions></attributes>" + Note({.duration = 1})}),
         "part 1, measure 1: durations that cannot be added up exactly", 0},
    };
    for (const auto& c : cases) {
        readback::Texts texts;
        const readback::Reading reading = readback::ReadContent(c.bytes, texts);
        EXPECT_EQ(reading.score, nullptr);
        EXPECT_EQ(reading.problem.substr(0, c.says.size()), c.says);
        EXPECT_EQ(reading.line, c.line) << c.says;
    }
    std::string deep;
    for (int i = 0; i < 10000; ++i) {
        deep += "<a>";
    }
    for (int i = 0; i < 10000; ++i) {
        deep += "</a>";
    }
    readback::Texts texts;
    EXPECT_EQ(readback::ReadContent("<score-partwise>" + deep + "</score-partwise>", texts).problem,
              "elements are nested too deeply");
}

// Each is read, and equal to itself.
TEST(SecondReading, AcceptsWellFormedFiles) {
    const std::string measures[] = {
        "",
        "<note/>",
        Backup(99) + Note({}),
        Note({.first = "<chord/>"}),
        "<note><pitch/><duration>many</duration><staff>7</staff></note>",
        "<note><duration>2</duration><notations><slur/><tuplet type=\"stop\"/></notations></note>",
        "<attributes><divisions>0</divisions><time><beats>0</beats></time></attributes>" + Note({}),
        "<direction><direction-type><wedge/></direction-type><offset>-1</offset></direction>",
    };
    for (const std::string& measure : measures) {
        const Compared compared{ScoreText({measure}), ScoreText({measure})};
        EXPECT_EQ(compared.Differences() + compared.Faults(), "") << measure;
    }
}

TEST(ExactTime, AddsAndComparesFractions) {
    using readback::ExactTime;
    const ExactTime third{1, 3};
    EXPECT_EQ(third + third + third, (ExactTime{1, 1}));
    EXPECT_LT(third, (ExactTime{1, 2}));
    EXPECT_EQ(third.InUnits(), 341);
    EXPECT_EQ(ExactTime::OfDecimal(" -2.50\n"), (ExactTime{-5, 2}));
    EXPECT_EQ(ExactTime::OfDecimal("2,5"), ExactTime{});
    EXPECT_FALSE((third / ExactTime{}).IsValid());
    EXPECT_FALSE((ExactTime{1, 999999937} + ExactTime{1, 999999929}).IsValid());
}

}  // namespace
}  // namespace standin
