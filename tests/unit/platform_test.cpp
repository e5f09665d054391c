// The headless platform behaves like Windows: registry, timers, code pages, texts.
#include <array>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>
#include <tuple>

#include "platform/guarded.h"
#include "platform/headless/session.h"
#include "platform/registry.h"
#include "platform/resources.h"
#include "platform/text.h"
#include "platform/timer.h"

namespace {

using platform::CodePage;
using platform::KeyAccess;
using platform::RegistryKey;
using platform::RegistryResult;
namespace headless = platform::headless;

class Session : public testing::Test {
protected:
    Session() { headless::Reset(); }
};

TEST(Guarded, ReturnsOtherValueOnException) {
    EXPECT_EQ(platform::Guarded(1, [] { return 2; }), 2);
    EXPECT_EQ(platform::Guarded(1, []() -> int { throw 3; }), 1);
    std::exception_ptr thrown;
    EXPECT_FALSE(platform::Guarded(
        false, []() -> bool { throw std::bad_alloc{}; }, &thrown));
    EXPECT_THROW(std::rethrow_exception(thrown), std::bad_alloc);
}

TEST_F(Session, ValueNamesIgnoreCase) {
    RegistryKey::Create("Software\\Test").SetBinaryValue("Name", "abcd", 4);
    const RegistryKey key = RegistryKey::Open("SOFTWARE\\test\\", KeyAccess::kRead);
    platform::ValueType type{};
    char bytes[] = "..";
    std::uint32_t size = 2;
    EXPECT_EQ(key.QueryValue("nAME", &type, bytes, &size), RegistryResult::kMoreData);
    EXPECT_EQ(size, 4U);
    EXPECT_STREQ(bytes, "..");
}

TEST_F(Session, KeysEnforceAccess) {
    RegistryKey outer = RegistryKey::Create("Outer");
    RegistryKey middle = RegistryKey::Create("Outer\\Middle");
    RegistryKey::Create("Outer\\Middle\\Inner");
    RegistryKey reader = RegistryKey::Open("Outer\\Middle", KeyAccess::kRead);
    EXPECT_EQ(reader.SetBinaryValue("v", "a", 1), RegistryResult::kAccessDenied);
    EXPECT_EQ(outer.DeleteSubkey("Middle"), RegistryResult::kAccessDenied) << "it holds a key";
    EXPECT_EQ(middle.DeleteSubkey("Inner"), RegistryResult::kSuccess);
    EXPECT_EQ(outer.DeleteSubkey("Middle"), RegistryResult::kSuccess);
    EXPECT_EQ(outer.DeleteSubkey("Middle"), RegistryResult::kNotFound);
    EXPECT_EQ(middle.SetBinaryValue("v", "a", 1), RegistryResult::kKeyDeleted);
    EXPECT_EQ(RegistryKey::Open("Outer\\Middle", KeyAccess::kAll).DeleteValue("v"),
              RegistryResult::kInvalidHandle);
}

TEST_F(Session, TimersRunUntilTheyAreStopped) {
    const auto stopItself = [](std::uintptr_t timer) {
        EXPECT_TRUE(platform::StopThreadTimer(timer));
        EXPECT_FALSE(platform::StopThreadTimer(timer));
    };
    EXPECT_NE(platform::StartThreadTimer(10, stopItself), 0U);
    EXPECT_EQ(headless::FireTimers(), 1);
    EXPECT_EQ(headless::FireTimers(), 0);
    headless::RefuseTimers();
    EXPECT_EQ(platform::StartThreadTimer(10, stopItself), 0U);
}

TEST(Utf8, IsReadStrictly) {
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
    const std::u16string lone{u'x', char16_t{0xD834}, u'z', char16_t{0xDD1E}};
    EXPECT_EQ(platform::Utf16ToMultiByte(lone, CodePage::kUtf8), "x\xEF\xBF\xBDz\xEF\xBF\xBD");
}

TEST(AnsiText, UsesNoBestFit) {
    EXPECT_EQ(platform::Utf16ToMultiByte(u"Comp\u00E1s \u20AC \u0101", CodePage::kAnsi),
              "Comp\xE1s \x80 ?");
    EXPECT_EQ(platform::MultiByteToUtf16("Comp\xE1s \x80", CodePage::kAnsi), u"Comp\u00E1s \u20AC");
}

TEST(StringTable, HasBothLanguages) {
    headless::SetLanguage(headless::Language::kEnglish);
    EXPECT_EQ(platform::ResourceString(29991), u"%s->Out of Memory.");
    headless::SetLanguage(headless::Language::kSpanish);
    EXPECT_EQ(platform::ResourceString(29991), u"\"%s-< Sin memoria\".");
    std::array<char16_t, 5> buffer;
    EXPECT_EQ(platform::LoadResourceString(20075, buffer.data(), 5), 4U);
    EXPECT_EQ(std::u16string{buffer.data()}, u"Toda");
    EXPECT_EQ(platform::LoadResourceString(1, buffer.data(), 5), 0U);
    EXPECT_EQ(std::u16string{buffer.data()}, u"");
}

TEST(StringTable, FollowsEnvironmentLanguage) {
    // LC_ALL, LANG, the word for yes.
    const std::tuple<const char*, const char*, const char16_t*> cases[] = {
        {"C", "es_ES", u"Yes"},
        {"es_ES.UTF-8", "en_US", u"S\u00ED"},
        {"", "es_MX", u"S\u00ED"},
        {"", "", u"Yes"},
    };
    for (const auto& [all, lang, yes] : cases) {
        setenv("LC_ALL", all, 1);
        setenv("LC_MESSAGES", "", 1);
        setenv("LANG", lang, 1);
        headless::Reset();
        EXPECT_EQ(platform::ResourceString(20001), yes) << all << ' ' << lang;
    }
}

}  // namespace
