// Code pages and the string table of the headless platform.
#include <array>
#include <gtest/gtest.h>
#include <optional>
#include <string>

#include "platform/headless/session.h"
#include "platform/resources.h"
#include "platform/text.h"

namespace {

using platform::CodePage;

struct Utf8Case {
    const char* name;
    const char* bytes;
    std::optional<std::u16string> text;  // nothing: not valid UTF-8
};

class Utf8 : public testing::TestWithParam<Utf8Case> {};

TEST_P(Utf8, IsReadStrictly) {
    const auto text = platform::MultiByteToUtf16(GetParam().bytes, CodePage::kUtf8);
    EXPECT_EQ(text, GetParam().text);
    if (text) {
        EXPECT_EQ(platform::Utf16ToMultiByte(*text, CodePage::kUtf8), GetParam().bytes);
    }
}

INSTANTIATE_TEST_SUITE_P(Sequences, Utf8,
                         testing::Values(Utf8Case{"Empty", "", u""},
                                         Utf8Case{"Ascii", "abc", u"abc"},
                                         Utf8Case{"TwoBytes", "S\xC3\xAD", u"S\u00ED"},
                                         Utf8Case{"ThreeBytes", "\xE2\x82\xAC", u"\u20AC"},
                                         Utf8Case{"FourBytes", "\xF0\x9D\x84\x9E", u"\U0001D11E"},
                                         Utf8Case{"Latin1", "Comp\xE1s", std::nullopt},
                                         Utf8Case{"LoneContinuation", "\x80", std::nullopt},
                                         Utf8Case{"CutShort", "\xE2\x82", std::nullopt},
                                         Utf8Case{"BadContinuation", "\xC3(", std::nullopt},
                                         Utf8Case{"Overlong", "\xC0\xAF", std::nullopt},
                                         Utf8Case{"Surrogate", "\xED\xA0\x80", std::nullopt},
                                         Utf8Case{"TooHigh", "\xF4\x90\x80\x80", std::nullopt},
                                         Utf8Case{"NoLeadByte", "\xFF", std::nullopt}),
                         [](const auto& test) { return std::string{test.param.name}; });

TEST(AnsiText, HasNoBestFit) {
    EXPECT_EQ(platform::Utf16ToMultiByte(u"Comp\u00E1s \u20AC \u0101", CodePage::kAnsi),
              "Comp\xE1s \x80 ?");
    EXPECT_EQ(platform::MultiByteToUtf16("Comp\xE1s \x80", CodePage::kAnsi), u"Comp\u00E1s \u20AC");
}

TEST(Utf16Text, LoneSurrogatesAreReplaced) {
    const std::u16string lone{u'a', char16_t{0xD834}, u'b', char16_t{0xDD1E}};
    EXPECT_EQ(platform::Utf16ToMultiByte(lone, CodePage::kUtf8),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD");
}

TEST(StringTable, HasBothLanguagesWithTheirOddQuotes) {
    platform::headless::Reset();
    platform::headless::SetLanguage(platform::headless::Language::kEnglish);
    EXPECT_EQ(platform::ResourceString(29991), u"%s->Out of Memory.");
    platform::headless::SetLanguage(platform::headless::Language::kSpanish);
    EXPECT_EQ(platform::ResourceString(29991), u"\"%s-< Sin memoria\".");
    EXPECT_EQ(platform::ResourceString(20098), u"Comp\u00E1s");
    EXPECT_EQ(platform::ResourceString(1), u"");
    std::array<char16_t, 5> buffer;
    EXPECT_EQ(platform::LoadResourceString(20075, buffer.data(), 5), 4U);
    EXPECT_EQ(std::u16string{buffer.data()}, u"Toda");
    EXPECT_EQ(platform::LoadResourceString(1, buffer.data(), 5), 0U);
    EXPECT_EQ(std::u16string{buffer.data()}, u"");
}

struct LanguageCase {
    const char* name;
    const char* all;
    const char* lang;
    const char16_t* yes;
};

class EnvironmentLanguage : public testing::TestWithParam<LanguageCase> {};

TEST_P(EnvironmentLanguage, DecidesUnlessTold) {
    setenv("LC_ALL", GetParam().all, 1);
    setenv("LC_MESSAGES", "", 1);
    setenv("LANG", GetParam().lang, 1);
    platform::headless::Reset();
    EXPECT_EQ(platform::ResourceString(20001), GetParam().yes);
}

INSTANTIATE_TEST_SUITE_P(
    Variables, EnvironmentLanguage,
    testing::Values(LanguageCase{"None", "", "", u"Yes"}, LanguageCase{"C", "C", "es_ES", u"Yes"},
                    LanguageCase{"Spanish", "es_ES.UTF-8", "en_US", u"S\u00ED"},
                    LanguageCase{"SpanishByLang", "", "es_MX", u"S\u00ED"},
                    LanguageCase{"German", "", "de_DE", u"Yes"}),
    [](const auto& test) { return std::string{test.param.name}; });

}  // namespace
