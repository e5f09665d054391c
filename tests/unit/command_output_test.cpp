// What the program leaves behind: its output file, and the user's stored options.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "host/cli/output_file.h"
#include "host/cli/stored_options.h"
#include "platform/headless/session.h"
#include "platform/registry.h"

namespace {

namespace fs = std::filesystem;
using namespace standin::cli;
using platform::KeyAccess;
using platform::RegistryKey;
using platform::RegistryResult;

std::string Content(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream{file, std::ios::binary}.rdbuf();
    return text.str();
}

class OutputFile : public testing::Test {
protected:
    void SetUp() override {
        folder = fs::temp_directory_path() /
                 ("plyweld-output-" +
                  std::string{testing::UnitTest::GetInstance()->current_test_info()->name()});
        fs::remove_all(folder);
        fs::create_directory(folder);
    }
    void TearDown() override { fs::remove_all(folder); }

    std::size_t FilesInFolder() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator{folder}, fs::directory_iterator{}));
    }

    fs::path folder;
};

TEST_F(OutputFile, ReplacesWhatWasThereAndKeepsItsPermissions) {
    const fs::path file = folder / "score.musicxml";
    std::ofstream{file} << "old";
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(WriteWhole(file.string(), std::string_view{"a\0b", 3}), "");
    EXPECT_EQ(Content(file), (std::string{"a\0b", 3}));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(OutputFile, ALinkStaysALink) {
    std::ofstream{folder / "real"} << "old";
    fs::create_symlink("real", folder / "link");
    EXPECT_EQ(WriteWhole((folder / "link").string(), "new"), "");
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(Content(folder / "real"), "new");
}

TEST_F(OutputFile, WhatCannotBeWrittenIsSaidAndLeavesNothing) {
    EXPECT_NE(WriteWhole(folder.string(), "new"), "");
    EXPECT_NE(WriteWhole((folder / "missing" / "score.xml").string(), "new"), "");
    EXPECT_EQ(FilesInFolder(), 0U);
}

constexpr const char* kBase = "Software\\ZKW\\Finale Plugin Prefs";
constexpr const char* kKey = "Software\\ZKW\\Finale Plugin Prefs\\Plyweld";

std::string StoredBytes() {
    std::string bytes(64, '\0');
    platform::ValueType type{};
    auto size = static_cast<std::uint32_t>(bytes.size());
    if (RegistryKey::Open(kKey, KeyAccess::kRead)
            .QueryValue("ZKCF22000", &type, bytes.data(), &size) != RegistryResult::kSuccess) {
        return "none";
    }
    return bytes.substr(0, size);
}

TEST(StoredOptions, StandWhereThePluginReadsThemAndGoAgain) {
    platform::headless::Reset();
    {
        const StoredOptions stored{
            standin::MergeOptions{.source = 1, .destination = 2, .hideRests = 1}};
        EXPECT_TRUE(stored);
        EXPECT_EQ(StoredBytes(), (std::string{"\x0c\0\1\0\2\0\0\0\1\0\1\0", 12}));
    }
    EXPECT_FALSE(RegistryKey::Open(kKey, KeyAccess::kRead));
    EXPECT_EQ(platform::headless::OpenRegistryKeys(), 0);
}

TEST(StoredOptions, TheUsersOwnComeBack) {
    platform::headless::Reset();
    RegistryKey::Create(kKey).SetBinaryValue("ZKCF22000", "mine", 4);
    RegistryKey::Create(kKey).SetBinaryValue("WPOS22000", "place", 5);
    { const StoredOptions stored{{}}; }
    EXPECT_EQ(StoredBytes(), "mine");

    RegistryKey::Open(kKey, KeyAccess::kAll).DeleteValue("ZKCF22000");
    { const StoredOptions stored{{}}; }
    EXPECT_EQ(StoredBytes(), "none");
    EXPECT_TRUE(RegistryKey::Open(kKey, KeyAccess::kRead));
    EXPECT_TRUE(RegistryKey::Open(kBase, KeyAccess::kRead));
}

}  // namespace
