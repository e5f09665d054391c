// Code pages and the string table of the headless platform.
#include <array>
#include <gtest/gtest.h>
#include <string>
#include <utility>

#include "platform/headless/session.h"
#include "platform/resources.h"
#include "platform/text.h"

namespace {

using platform::CodePage;

TEST(Utf8, IsReadStrictlyAndComesBack) {
    const std::pair<const char*, const char16_t*> cases[] = {
        {"abc", u"abc"},
        {"S\xC3\xAD", u"S\u00ED"},
        {"\xE2\x82\xAC", u"\u20AC"},
        {"\xF0\x9D\x84\x9E", u"\U0001D11E"},
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(platform::MultiByteToUtf16(bytes, CodePage::kUtf8), text);
        EXPECT_EQ(platform::Utf16ToMultiByte(text, CodePage::kUtf8), bytes);
    }
    for (const char* bad : {"Comp\xE1s", "\x80", "\xE2\x82", "\xC3(", "\xC0\xAF", "\xED\xA0\x80",
                            "\xF4\x90\x80\x80", "\xFF"}) {
        EXPECT_FALSE(platform::MultiByteToUtf16(bad, CodePage::kUtf8)) << bad;
    }
    const std::u16string lone{u'a', char16_t{0xD834}, u'b', char16_t{0xDD1E}};
    EXPECT_EQ(platform::Utf16ToMultiByte(lone, CodePage::kUtf8),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD");
}

TEST(AnsiText, HasNoBestFit) {
    EXPECT_EQ(platform::Utf16ToMultiByte(u"Comp\u00E1s \u20AC \u0101", CodePage::kAnsi),
              "Comp\xE1s \x80 ?");
    EXPECT_EQ(platform::MultiByteToUtf16("Comp\xE1s \x80", CodePage::kAnsi), u"Comp\u00E1s \u20AC");
}

TEST(StringTable, HasBothLanguagesWithTheirOddQuotes) {
    platform::headless::Reset();
    platform::headless::SetLanguage(platform::headless::Language::kEnglish);
    EXPECT_EQ(platform::ResourceString(29991), u"%s->Out of Memory.");
    platform::headless::SetLanguage(platform::headless::Language::kSpanish);
    EXPECT_EQ(platform::ResourceString(29991), u"\"%s-< Sin memoria\".");
    EXPECT_EQ(platform::ResourceString(1), u"");
    std::array<char16_t, 5> buffer;
    EXPECT_EQ(platform::LoadResourceString(20075, buffer.data(), 5), 4U);
    EXPECT_EQ(std::u16string{buffer.data()}, u"Toda");
    EXPECT_EQ(platform::LoadResourceString(1, buffer.data(), 5), 0U);
    EXPECT_EQ(std::u16string{buffer.data()}, u"");
}

TEST(StringTable, IsInTheLanguageOfTheEnvironment) {
    const struct {
        const char* all;
        const char* lang;
        const char16_t* yes;
    } cases[] = {
        {"", "", u"Yes"},          {"C", "es_ES", u"Yes"}, {"es_ES.UTF-8", "en_US", u"S\u00ED"},
        {"", "es_MX", u"S\u00ED"}, {"", "de_DE", u"Yes"},
    };
    for (const auto& c : cases) {
        setenv("LC_ALL", c.all, 1);
        setenv("LC_MESSAGES", "", 1);
        setenv("LANG", c.lang, 1);
        platform::headless::Reset();
        EXPECT_EQ(platform::ResourceString(20001), c.yes) << c.all << ' ' << c.lang;
    }
}

}  // namespace
