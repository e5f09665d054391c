#include <array>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

#include "Class Files/foundation/FinPIUniStringUtil.h"
#include "Class Files/foundation/FinPIVarLenStruct.h"
#include "Class Files/foundation/FinPIVarString.h"
#include "Class Files/foundation/FinPIVarStringUtf16.h"
#include "platform/headless/session.h"
#include "tests/unit/support/pending_error.h"

namespace {

namespace Util = FinPIUniStringUtil;

class Strings : public testing::Test {
protected:
    Strings() { platform::headless::SetLanguage(platform::headless::Language::kEnglish); }
    ~Strings() override { platform::headless::Reset(); }
};

TEST_F(Strings, BuffersHaveExactSize) {
    FinPIVarLenStruct<u8> buffer;
    EXPECT_EQ(buffer.SetSize(4), 1);
    std::memcpy(buffer.Elements(), "abcd", 4);
    buffer.SetSize(2);
    buffer.SetSize(5);
    EXPECT_EQ(buffer.Size(), 5U);
    EXPECT_EQ(std::memcmp(buffer.Elements(), "ab\0\0\0", 5), 0);
    buffer.SetSize(0);
    EXPECT_EQ(buffer.Elements(), nullptr);
}

TEST_F(Strings, TruncatedUtf8IsTerminated) {
    const auto encoded = [](const char16* source, u64 size) {
        std::array<char, 16> out;
        out.fill('#');
        EXPECT_EQ(Util::UniChar_Utf8encode(out.data(), source, size), out.data());
        EXPECT_EQ(out[size - 1], '\0');
        return std::string{out.data()};
    };
    EXPECT_EQ(encoded(u"Compás", 16), "Compás");
    EXPECT_EQ(encoded(u"Compás", 6), "Comp\xC3") << "cut inside a character";
    EXPECT_EQ(encoded(u"x", 1), "");
}

TEST_F(Strings, InvalidUtf8IsReadAsAnsi) {
    const auto decoded = [](const char* source, u64 size) {
        std::array<char16, 16> out;
        out.fill(u'#');
        Util::UniChar_Utf16encode(out.data(), source, size);
        EXPECT_EQ(out[size - 1], u'\0') << "the rest is zero-filled";
        return std::u16string{out.data()};
    };
    EXPECT_EQ(decoded("Comp\xE1s", 16), u"Compás");
    EXPECT_EQ(decoded("Compás", 4), u"Com");
}

TEST_F(Strings, FailedConversionGivesEmptyText) {
    platform::headless::RefuseTextConversions(true);
    char out8[] = "###";
    char16 out16[] = u"###";
    EXPECT_EQ(*Util::UniChar_Utf8encode(out8, u"abc", 4), '\0');
    EXPECT_EQ(*Util::UniChar_Utf16encode(out16, "abc", 4), u'\0');
    EXPECT_TRUE(TakePendingError().ends_with("UTF8 conversion failed."));
}

TEST_F(Strings, SearchIncludesTerminator) {
    char16 text[] = u"a-b-";
    EXPECT_EQ(Util::UniChar_strchr(text, u'-'), text + 1);
    EXPECT_EQ(Util::UniChar_strchr(text, 0), text + 4);
    for (const u32 beyond : {0x10000U, 0x10000U + u'a'}) {
        EXPECT_EQ(Util::UniChar_strchr(text, beyond), nullptr);
        EXPECT_TRUE(TakePendingError().ends_with("code pages not supported at this time."));
    }
}

TEST_F(Strings, CopiesAreBounded) {
    std::array<char16, 32> text;
    text.fill(u'#');
    Util::UniChar_strncpyUtf8(text.data(), "Bar\xE1\xB9\xA1 and more", 5);
    EXPECT_EQ(text[5], u'#');
    Util::UniChar_strcatInt(text.data(), static_cast<u32>(-12));
    EXPECT_EQ(Util::UniChar_strcatUtf8(text.data(), "ñ"), text.data());
    EXPECT_EQ(text.data(), std::u16string(u"Bar\u1E61-12ñ"));
    EXPECT_EQ(text[9], u'#') << "the next one";
}

TEST_F(Strings, NullIsNotUtf) {
    std::array<char, 4> narrow{'x', 'y'};
    std::array<char16, 4> wide{u'x', u'y'};
    EXPECT_STREQ(Util::UniChar_Utf8encode(narrow.data(), nullptr, narrow.size()), "");
    EXPECT_NE(g_pendingError, nullptr);
    g_pendingError.reset();
    EXPECT_EQ(Util::UniChar_Utf16encode(wide.data(), nullptr, wide.size())[0], u'\0');
    EXPECT_NE(g_pendingError, nullptr);
    g_pendingError.reset();
}

TEST_F(Strings, OwnedStringsFitTheirText) {
    FinPIVarString narrow("%s-%05.1f%%", "x", 2.5);
    EXPECT_STREQ(narrow.Text(), "x-002.5%");
    EXPECT_EQ(narrow.Size(), 9U);
    narrow.Clear();
    EXPECT_STREQ(narrow.Text(), "");
    EXPECT_EQ(narrow.Size(), 9U);
    narrow.Set(nullptr);
    narrow.AppendResource(20001);
    EXPECT_EQ(narrow.Size(), std::strlen(narrow.Text()) + 1);
    FinPIVarString one;
    one.Set("x");
    one.AppendResource(20001);
    EXPECT_EQ(one.Size(), sizeof("xYes"));
    FinPIVarStringUtf16 oneUnit{"x"};
    oneUnit.Append(u"Yes");
    EXPECT_EQ(oneUnit.Size(), sizeof(u"xYes"));
    EXPECT_STREQ(narrow.Text(), "Yes");
    EXPECT_EQ(narrow.Size(), 4U);
    FinPIVarStringUtf16 wide(static_cast<const char*>(nullptr));
    wide.Append("ab");
    EXPECT_EQ(wide.Size(), 2U + 2U * 2U) << "an empty text counts as its terminator";
    wide.Append(u"ç");
    wide.AppendResource(20001);
    EXPECT_EQ(wide.Text(), std::u16string(u"abçYes"));
    EXPECT_EQ(FinPIVarStringUtf16(20095U, 7).Text(), std::u16string(u"Staff Set 7."));
}

}  // namespace
