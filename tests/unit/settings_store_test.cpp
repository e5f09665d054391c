// The settings store against a registry in memory.
#include <gtest/gtest.h>
#include <string>

#include "Class Files/foundation/FinPIUtil.h"
#include "Class Files/foundation/GetRegValue.h"
#include "platform/headless/session.h"
#include "tests/unit/support/registry_values.h"

namespace {

namespace headless = platform::headless;

const std::string kBase = kPreferences;
const std::string kCurrent = kBase + "\\Plyweld";
const std::string kLegacy = kBase + "\\ZKW Plyweld";
const std::string kAnswers = kBase + "\\Dont Show Again Alert";
const std::string kOldAnswers = kBase + "\\ZKW Dont Show Again Alert";

class SettingsStore : public testing::Test {
protected:
    void SetUp() override { headless::Reset(); }
    void TearDown() override { EXPECT_EQ(headless::OpenRegistryKeys(), 0); }
};

TEST_F(SettingsStore, ReadingReturnsStoredSize) {
    const std::string zeros(8, '\0');
    const std::string padded("abc\0\0\0\0\0", 8);
    const std::string full = "abcdefgh";
    const struct {
        std::string key;
        std::string name;
        std::string value;
        i16 asked;
        u32 result;
        std::string buffer;  // eight bytes, filled with "........" before
    } cases[] = {
        {kCurrent, "ZKCF22000", "abc", 22000, 3, padded},
        {kCurrent, "ZKCF22000", full + "ij", 22000, 10, full},
        {kCurrent, "ZKCF22001", full, 22000, 0, zeros},
        {kCurrent, "ZKCF-5", full, -5, 8, full},
        {kLegacy, "ZKCF22000", "abc", 22000, 3, padded},
        {kBase, "Plyweld", full, 17, 8, full},  // the oldest answers any number
        {kBase, "Other", full, 17, 0, zeros},
        {kCurrent, "ZKCF20700", full, 21600, 8, full},  // renumbered
        {kCurrent, "ZKCF21600", full, 20700, 0, zeros},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.key + ' ' + c.name + ' ' + c.value);
        headless::Reset();
        StoreValue(c.key, c.name, c.value);
        std::string buffer = "........";
        EXPECT_EQ(ZKFX_GetSettings("ZKCF", c.asked, buffer.data(), 8, "Plyweld"), c.result);
        EXPECT_EQ(buffer, c.buffer);
        EXPECT_EQ(ZKFX_GetSettings("ZKCF", c.asked, nullptr, 0, "Plyweld"), c.result);
    }
}

TEST_F(SettingsStore, CurrentLayoutComesFirst) {
    StoreValue(kBase, "Plyweld", "oldest");
    StoreValue(kLegacy, "ZKCF1", "legacy");
    std::string buffer(6, '.');
    EXPECT_EQ(ZKFX_GetSettings("ZKCF", 1, buffer.data(), 6, "Plyweld"), 6U);
    EXPECT_EQ(buffer, "legacy");
    // An empty value also ends the search.
    StoreValue(kCurrent, "ZKCF1", "");
    EXPECT_EQ(ZKFX_GetSettings("ZKCF", 1, buffer.data(), 6, "Plyweld"), 0U);
}

TEST_F(SettingsStore, ReadingAnswersDeletesOldKey) {
    StoreValue(kOldAnswers, "CKAT20004", "x");
    StoreValue(kAnswers, "CKAT20003", "y");
    char byte = 0;
    EXPECT_EQ(ZKFX_GetSettings("CKAT", 20003, &byte, 1, "Dont Show Again Alert"), 1U);
    EXPECT_TRUE(KeyExists(kOldAnswers)) << "a value in use ends the search before the legacy key";
    EXPECT_EQ(ZKFX_GetSettings("CKAT", 20004, &byte, 1, "Dont Show Again Alert"), 0U);
    EXPECT_FALSE(KeyExists(kOldAnswers));
}

TEST_F(SettingsStore, WritingClearsOlderLayouts) {
    StoreValue(kLegacy, "ZKCF22000", "old");
    StoreValue(kLegacy, "WPOS22000", "stays");
    StoreValue(kBase, "Plyweld", "oldest");
    StoreValue(kBase, "Other", "stays");
    EXPECT_EQ(ZKFX_PutSettings("ZKCF", 22000, "new", 3, "Plyweld"), 1);
    EXPECT_EQ(StoredValue(kCurrent, "ZKCF22000"), "new");
    EXPECT_EQ(StoredValue(kLegacy, "ZKCF22000"), std::nullopt);
    EXPECT_EQ(StoredValue(kLegacy, "WPOS22000"), "stays");
    EXPECT_EQ(StoredValue(kBase, "Plyweld"), std::nullopt);
    EXPECT_EQ(StoredValue(kBase, "Other"), "stays");
    headless::RefuseRegistryCall(headless::RegistryCall::kCreateKey, 1);
    EXPECT_EQ(ZKFX_PutSettings("ZKCF", 22000, "lost", 4, "Plyweld"), 0);
    EXPECT_EQ(ZKFX_PutSettings("WPOS", 22000, "new", 3, "Plyweld"), 1);
    EXPECT_FALSE(KeyExists(kLegacy)) << "the legacy key goes with its last value";
}

TEST_F(SettingsStore, DeletesOneOrAllValues) {
    const std::string names[] = {"AAAA" + std::string(300, 'x'),
                                 "WPOS12003",
                                 "WPOS22000",
                                 "WPOS33000",
                                 "ZKCF22000",
                                 "wpos1"};
    const auto stored = [&] {
        std::string marks;
        for (const std::string& name : names) {
            marks += StoredValue(kCurrent, name).value_or("-");
        }
        return marks;
    };
    for (const std::string& name : names) {
        StoreValue(kCurrent, name, "x");
    }
    headless::RefuseRegistryCall(headless::RegistryCall::kDeleteValue, 2);
    ZKFX_DeleteSettings("WPOS", -1, "Plyweld");
    EXPECT_EQ(stored(), "x-xxxx") << "a failure ends it";
    ZKFX_DeleteSettings("WPOS", -1, "Plyweld");
    EXPECT_EQ(stored(), "x---xx");
    ZKFX_DeleteSettings("ZKCF", 22000, "Plyweld");
    EXPECT_EQ(stored(), "x----x");
    StoreValue(kCurrent, "WPOS0", "x");
    StoreValue(kCurrent, "WPOS7", "x");
    ZKFX_DeleteSettings("WPOS", 0, "Plyweld");
    EXPECT_EQ(StoredValue(kCurrent, "WPOS0"), std::nullopt);
    EXPECT_EQ(StoredValue(kCurrent, "WPOS7"), "x") << "0 is a number like others";
    StoreValue(kCurrent, "AAAA1", "x");
    ZKFX_DeleteSettings("AAAA", -1, "Plyweld");
    EXPECT_EQ(StoredValue(kCurrent, "AAAA1"), std::nullopt) << "the first of all";
}

TEST_F(SettingsStore, DeletingClearsOldCopies) {
    StoreValue(kLegacy, "ZKCF22000", "x");
    headless::RefuseRegistryCall(headless::RegistryCall::kCreateKey, 1);
    ZKFX_DeleteSettings("ZKCF", 22000, "Plyweld");
    EXPECT_FALSE(KeyExists(kLegacy)) << "also when the key in use cannot be opened";
    StoreValue(kLegacy, "ZKCF1", "x");
    headless::RefuseRegistryCall(headless::RegistryCall::kOpenKey, 1);
    ZKFX_DeleteSettings("ZKCF", 2, "Plyweld");
    EXPECT_TRUE(KeyExists(kLegacy)) << "it may hold more";
    platform::ValueType type{};
    u32 size = 5;
    const auto key = platform::RegistryKey::Open(kLegacy, platform::KeyAccess::kRead);
    EXPECT_NE(GetRegValue(key, "ZKCF2", &type, nullptr, &size), platform::RegistryResult::kSuccess);
    EXPECT_EQ(size, 0U);
}

}  // namespace
