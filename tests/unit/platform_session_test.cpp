// The headless platform behaves like the system it stands for.
#include <cstdint>
#include <gtest/gtest.h>
#include <string>

#include "platform/headless/session.h"
#include "platform/module.h"
#include "platform/registry.h"
#include "platform/timer.h"

namespace {

using platform::KeyAccess;
using platform::RegistryKey;
using platform::RegistryResult;
namespace headless = platform::headless;

class Session : public testing::Test {
protected:
    Session() { headless::Reset(); }
};

TEST_F(Session, AValueIsFoundInAnyLetterCaseAndFitsOrLeavesTheBufferAlone) {
    RegistryKey::Create("Software\\Test").SetBinaryValue("Name", "abcd", 4);
    const RegistryKey key = RegistryKey::Open("SOFTWARE\\test\\", KeyAccess::kRead);
    platform::ValueType type{};
    char bytes[] = "..";
    std::uint32_t size = 2;
    EXPECT_EQ(key.QueryValue("nAME", &type, bytes, &size), RegistryResult::kMoreData);
    EXPECT_EQ(size, 4U);
    EXPECT_STREQ(bytes, "..");
    size = 0;
    EXPECT_EQ(key.QueryValue("nAME", &type, nullptr, &size), RegistryResult::kSuccess);
    EXPECT_EQ(size, 4U);
    EXPECT_EQ(key.QueryValue("other", &type, bytes, &size), RegistryResult::kNotFound);
}

TEST_F(Session, KeysRefuseWhatTheirAccessDoesNotAllow) {
    RegistryKey::Create("Test\\Inner");
    RegistryKey reader = RegistryKey::Open("Test", KeyAccess::kRead);
    EXPECT_EQ(reader.SetBinaryValue("v", "a", 1), RegistryResult::kAccessDenied);
    EXPECT_EQ(reader.DeleteSubkey("Inner"), RegistryResult::kAccessDenied);
    RegistryKey none = RegistryKey::Open("Missing", KeyAccess::kAll);
    EXPECT_FALSE(none);
    EXPECT_EQ(none.DeleteValue("v"), RegistryResult::kInvalidHandle);
}

TEST_F(Session, AKeyThatHoldsKeysIsNotDeletedAndADeletedOneIsDead) {
    RegistryKey outer = RegistryKey::Create("Outer");
    RegistryKey middle = RegistryKey::Create("Outer\\Middle");
    RegistryKey::Create("Outer\\Middle\\Inner");
    EXPECT_EQ(outer.DeleteSubkey("Middle"), RegistryResult::kAccessDenied);
    EXPECT_EQ(middle.DeleteSubkey("Inner"), RegistryResult::kSuccess);
    EXPECT_EQ(outer.DeleteSubkey("Middle"), RegistryResult::kSuccess);
    EXPECT_EQ(outer.DeleteSubkey("Middle"), RegistryResult::kNotFound);
    EXPECT_EQ(middle.SetBinaryValue("v", "a", 1), RegistryResult::kKeyDeleted);
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

TEST_F(Session, FindsWhatTheHostExportsAndNothingHidden) {
    EXPECT_NE(platform::FindHostFunction("strlen"), nullptr);
    EXPECT_EQ(platform::FindHostFunction("FX_NoSuchFunction"), nullptr);
    headless::HideHostFunction("strlen");
    EXPECT_EQ(platform::FindHostFunction("strlen"), nullptr);
}

TEST_F(Session, ThePluginsFileIsThatOfAnAddressInIt) {
    static int here = 0;
    platform::SetPluginModule(&here);
    EXPECT_TRUE(platform::PluginFilePath().ends_with("/test_platform"));
    platform::SetPluginModule(nullptr);
    EXPECT_EQ(platform::PluginFilePath(), "");
}

}  // namespace
