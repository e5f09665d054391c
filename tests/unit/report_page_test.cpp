// Pages: what a score or a file is named must not become markup.
#include <gtest/gtest.h>

#include "host/report/page/html.h"
#include "host/report/page/index_page.h"

namespace {

using namespace standin;

TEST(Html, MarkupInTextsStaysText) {
    EXPECT_EQ(HtmlText("<b a='1' c=\"2\">&amp;"),
              "&lt;b a=&#39;1&#39; c=&quot;2&quot;&gt;&amp;amp;");
    EXPECT_EQ(HtmlText("\u00E9\u5F8C"), "\u00E9\u5F8C");
}

TEST(Html, AnyFileNameMakesALink) {
    EXPECT_EQ(HtmlLink("a/b-1.html"), "./a/b-1.html");
    EXPECT_EQ(HtmlLink("50% #1?.html"), "./50%25%20%231%3F.html");
    EXPECT_EQ(HtmlLink("javascript:x\"<"), "./javascript%3Ax%22%3C");
    EXPECT_EQ(HtmlLink("\u5F8C"), "./%E5%BE%8C");
}

TEST(Html, DataNeverEndsItsScript) {
    const std::string data = HtmlData("[\"</script><!-- &amp;\"]");
    EXPECT_EQ(data, "[\"\\u003c/script>\\u003c!-- &amp;\"]");
}

TEST(IndexPage, AddsUpAndNamesWhatFailed) {
    const std::string page = IndexAsPage({{"a.xml", "a.xml.html", true, "", 1, 2, 3, 4, 5},
                                          {"b.xml", "", false, "<no score>", 0, 0, 0, 0, 0},
                                          {"c.xml", "c.xml.html", true, "", 10, 20, 30, 40, 50}});
    EXPECT_NE(page.find("<a href=\"./c.xml.html\">c.xml</a>"), std::string::npos);
    EXPECT_NE(page.find("not merged: &lt;no score&gt;"), std::string::npos);
    for (const char* sum : {"11", "22", "33", "44", "55"}) {
        EXPECT_NE(page.find(">" + std::string{sum} + "</td>"), std::string::npos) << sum;
    }
    EXPECT_NE(page.find("<b>2</b> scores merged"), std::string::npos);
}

}  // namespace
