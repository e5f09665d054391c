// The settings store against a registry in memory.
#include <array>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

#include "Class Files/settings/FinPIUtil.h"
#include "platform/headless/session.h"
#include "platform/registry.h"

namespace {

using platform::KeyAccess;
using platform::RegistryKey;
using platform::RegistryResult;
namespace headless = platform::headless;

const std::string kBase = "Software\\ZKW\\Finale Plugin Prefs";
const std::string kCurrent = kBase + "\\Plyweld";
const std::string kLegacy = kBase + "\\ZKW Plyweld";

void Store(const std::string& path, const std::string& name, const std::string& bytes) {
    ASSERT_EQ(RegistryKey::Create(path).SetBinaryValue(name, bytes.data(),
                                                       static_cast<u32>(bytes.size())),
              RegistryResult::kSuccess);
}

// The value's bytes; nothing when the key or the value is missing.
std::optional<std::string> Stored(const std::string& path, const std::string& name) {
    const RegistryKey key = RegistryKey::Open(path, KeyAccess::kRead);
    std::array<char, 256> bytes{};
    auto size = static_cast<u32>(bytes.size());
    platform::ValueType type{};
    if (key.QueryValue(name, &type, bytes.data(), &size) != RegistryResult::kSuccess) {
        return std::nullopt;
    }
    EXPECT_EQ(type, platform::ValueType::kBinary);
    return std::string{bytes.data(), size};
}

bool KeyExists(const std::string& path) {
    return static_cast<bool>(RegistryKey::Open(path, KeyAccess::kRead));
}

class SettingsStore : public testing::Test {
protected:
    void SetUp() override { headless::Reset(); }
    void TearDown() override { EXPECT_EQ(headless::OpenRegistryKeys(), 0); }
};

TEST_F(SettingsStore, ReadingFillsTheBufferAndGivesTheStoredSize) {
    const std::string zeros(8, '\0');
    const std::string padded("abc\0\0\0\0\0", 8);
    const std::string full = "abcdefgh";
    const char* const answers = "Dont Show Again Alert";
    const struct {
        std::string path;
        std::string valueName;
        std::string value;
        i16 asked;
        const char* pluginKey;
        u32 result;
        std::string buffer;  // eight bytes, filled with "........" before
    } cases[] = {
        {kBase, "Nothing", "", 22000, "Plyweld", 0, zeros},
        {kCurrent, "ZKCF22000", full, 22000, "Plyweld", 8, full},
        {kCurrent, "ZKCF22000", "abc", 22000, "Plyweld", 3, padded},
        {kCurrent, "ZKCF22000", full + "ij", 22000, "Plyweld", 10, full},
        {kCurrent, "ZKCF22000", "", 22000, "Plyweld", 0, zeros},
        {kCurrent, "ZKCF22001", full, 22000, "Plyweld", 0, zeros},
        {kCurrent, "ZKCF-5", full, -5, "Plyweld", 8, full},
        {kLegacy, "ZKCF22000", "abc", 22000, "Plyweld", 3, padded},
        {kLegacy, "ZKCF22000", full + "ij", 22000, "Plyweld", 10, full},
        {kBase, "Plyweld", full, 17, "Plyweld", 8, full},  // the oldest answers any number
        {kBase, "Other", full, 17, "Plyweld", 0, zeros},
        {kCurrent, "ZKCF20700", full, 21600, "Plyweld", 8, full},  // renumbered
        {kCurrent, "ZKCF21600", full, 20700, "Plyweld", 0, zeros},
        {kBase + "\\ZKW Dont Show Again Alert", "ZKCF22000", full, 22000, answers, 0, zeros},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.path + ' ' + c.valueName + ' ' + c.value);
        headless::Reset();
        Store(c.path, c.valueName, c.value);
        std::string buffer = "........";
        EXPECT_EQ(ZKFX_GetSettings("ZKCF", c.asked, buffer.data(), 8, c.pluginKey), c.result);
        EXPECT_EQ(buffer, c.buffer);
        EXPECT_EQ(ZKFX_GetSettings("ZKCF", c.asked, nullptr, 0, c.pluginKey), c.result);
    }
}

TEST_F(SettingsStore, TheLayoutInUseComesBeforeTheOlderOnes) {
    Store(kBase, "Plyweld", "oldest");
    Store(kLegacy, "ZKCF1", "legacy");
    std::string buffer(6, '.');
    EXPECT_EQ(ZKFX_GetSettings("ZKCF", 1, buffer.data(), 6, "Plyweld"), 6U);
    EXPECT_EQ(buffer, "legacy");
    Store(kCurrent, "ZKCF1", "in use");
    EXPECT_EQ(ZKFX_GetSettings("ZKCF", 1, buffer.data(), 6, "Plyweld"), 6U);
    EXPECT_EQ(buffer, "in use");
    // An empty value ends the search too.
    Store(kCurrent, "ZKCF1", "");
    EXPECT_EQ(ZKFX_GetSettings("ZKCF", 1, buffer.data(), 6, "Plyweld"), 0U);
}

TEST_F(SettingsStore, ReadingRememberedAnswersDeletesTheirLegacyKey) {
    const std::string legacy = kBase + "\\ZKW Dont Show Again Alert";
    Store(legacy, "CKAT20003", "x");
    Store(kBase + "\\Dont Show Again Alert", "CKAT20003", "y");
    char byte = 0;
    EXPECT_EQ(ZKFX_GetSettings("CKAT", 20003, &byte, 1, "Dont Show Again Alert"), 1U);
    EXPECT_TRUE(KeyExists(legacy)) << "a value in use ends the search before the legacy key";
    EXPECT_EQ(ZKFX_GetSettings("CKAT", 20004, &byte, 1, "Dont Show Again Alert"), 0U);
    EXPECT_FALSE(KeyExists(legacy));
}

TEST_F(SettingsStore, WritingMovesASettingOutOfBothOlderLayouts) {
    Store(kLegacy, "ZKCF22000", "old");
    Store(kLegacy, "WPOS22000", "stays");
    Store(kBase, "Plyweld", "oldest");
    Store(kBase, "Other", "stays");
    EXPECT_EQ(ZKFX_PutSettings("ZKCF", 22000, "new", 3, "Plyweld"), 1);
    EXPECT_EQ(Stored(kCurrent, "ZKCF22000"), "new");
    EXPECT_EQ(Stored(kLegacy, "ZKCF22000"), std::nullopt);
    EXPECT_EQ(Stored(kLegacy, "WPOS22000"), "stays");
    EXPECT_EQ(Stored(kBase, "Plyweld"), std::nullopt);
    EXPECT_EQ(Stored(kBase, "Other"), "stays");
    EXPECT_EQ(ZKFX_PutSettings("WPOS", 22000, "new", 3, "Plyweld"), 1);
    EXPECT_FALSE(KeyExists(kLegacy)) << "the legacy key goes with its last value";
    Store(kLegacy, "ZKCF22000", "old");
    Store(kLegacy + "\\Inner", "a", "b");
    EXPECT_EQ(ZKFX_PutSettings("ZKCF", 22000, "new", 3, "Plyweld"), 1);
    EXPECT_EQ(Stored(kLegacy + "\\Inner", "a"), "b") << "a legacy key that holds keys stays";
}

TEST_F(SettingsStore, RefusedWritesClearTheOlderCopiesAllTheSame) {
    using Call = headless::RegistryCall;
    for (const auto& [call, result] : {std::pair{Call::kCreateKey, 0},
                                       {Call::kSetValue, 0},
                                       {Call::kOpenKey, 1},
                                       {Call::kDeleteValue, 1},
                                       {Call::kQueryInfo, 1},
                                       {Call::kDeleteKey, 1}}) {
        SCOPED_TRACE(static_cast<int>(call));
        headless::Reset();
        Store(kBase, "Plyweld", "oldest");
        Store(kLegacy, "ZKCF22000", "old");
        headless::RefuseRegistryCall(call, 1);
        EXPECT_EQ(ZKFX_PutSettings("ZKCF", 22000, "new", 3, "Plyweld"), result);
        EXPECT_EQ(Stored(kCurrent, "ZKCF22000").has_value(), result == 1);
        EXPECT_EQ(Stored(kBase, "Plyweld"), std::nullopt);
    }
}

TEST_F(SettingsStore, DeletesOneValueOrAllThatBeginWithAName) {
    for (const char* name : {"AAAA1", "WPOS12003", "WPOS22000", "ZKCF22000", "wpos1"}) {
        Store(kCurrent, name, "x");
    }
    Store(kBase + "\\Other", "WPOS22000", "x");
    ZKFX_DeleteSettings("WPOS", -1, "Plyweld");
    EXPECT_EQ(Stored(kCurrent, "WPOS12003"), std::nullopt);
    EXPECT_EQ(Stored(kCurrent, "WPOS22000"), std::nullopt);
    for (const char* name : {"AAAA1", "ZKCF22000", "wpos1"}) {
        EXPECT_EQ(Stored(kCurrent, name), "x") << name;
    }
    EXPECT_EQ(Stored(kBase + "\\Other", "WPOS22000"), "x");
    ZKFX_DeleteSettings("ZKCF", 22000, "Plyweld");
    EXPECT_EQ(Stored(kCurrent, "ZKCF22000"), std::nullopt);
    EXPECT_EQ(Stored(kCurrent, "AAAA1"), "x");
}

TEST_F(SettingsStore, AFailedDeleteEndsTheOthers) {
    for (const char* name : {"WPOS1", "WPOS2", "WPOS3"}) {
        Store(kCurrent, name, "x");
    }
    headless::RefuseRegistryCall(headless::RegistryCall::kDeleteValue, 2);
    ZKFX_DeleteSettings("WPOS", -1, "Plyweld");
    EXPECT_EQ(Stored(kCurrent, "WPOS1"), std::nullopt);
    EXPECT_EQ(Stored(kCurrent, "WPOS2"), "x");
    EXPECT_EQ(Stored(kCurrent, "WPOS3"), "x");
}

TEST_F(SettingsStore, DeletingPassesOverNamesTooLongToBeOurs) {
    Store(kCurrent, "AAAA" + std::string(300, 'x'), "x");
    Store(kCurrent, "WPOS1", "x");
    ZKFX_DeleteSettings("WPOS", -1, "Plyweld");
    EXPECT_EQ(Stored(kCurrent, "WPOS1"), std::nullopt);
}

TEST_F(SettingsStore, DeletingClearsTheLegacyCopyAndItsEmptyKey) {
    Store(kLegacy, "ZKCF22000", "x");
    ZKFX_DeleteSettings("ZKCF", 22000, "Plyweld");
    EXPECT_FALSE(KeyExists(kLegacy));
    RegistryKey::Create(kLegacy);
    headless::RefuseRegistryCall(headless::RegistryCall::kCreateKey, 1);
    ZKFX_DeleteSettings("CKAT", -1, "Plyweld");
    EXPECT_FALSE(KeyExists(kLegacy)) << "also when the key in use cannot be opened";
}

}  // namespace
