// What the program leaves behind: its output file, and the user's stored options.
#include <gtest/gtest.h>

#include "host/cli/output_file.h"
#include "host/cli/stored_options.h"
#include "platform/headless/session.h"
#include "tests/unit/support/files.h"
#include "tests/unit/support/registry_values.h"

namespace {

namespace fs = std::filesystem;
using namespace standin::cli;

class OutputFile : public testing::Test {
protected:
    std::size_t FilesInFolder() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator{folder.Path()}, fs::directory_iterator{}));
    }

    TemporaryFolder folder;
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
    EXPECT_NE(WriteWhole(folder.Path().string(), "new"), "");
    EXPECT_NE(WriteWhole((folder / "missing/score.xml").string(), "new"), "");
    EXPECT_EQ(FilesInFolder(), 0U);
    std::ofstream{folder / "score.mxl"} << "old";
    EXPECT_NE(WriteWhole((folder / "score.mxl").string(), ""), "") << "could not be put together";
    EXPECT_EQ(Content(folder / "score.mxl"), "old");
}

const std::string kKey = kPreferences + "\\Plyweld";

TEST(StoredOptions, StandWhereThePluginReadsThemAndGoAgain) {
    platform::headless::Reset();
    {
        const StoredOptions stored{
            standin::MergeOptions{.source = 1, .destination = 2, .hideRests = 1}};
        EXPECT_TRUE(stored);
        EXPECT_EQ(StoredValue(kKey, "ZKCF22000"), (std::string{"\x0c\0\1\0\2\0\0\0\1\0\1\0", 12}));
    }
    EXPECT_FALSE(KeyExists(kKey));
    EXPECT_EQ(platform::headless::OpenRegistryKeys(), 0);
}

TEST(StoredOptions, TheUsersOwnComeBack) {
    platform::headless::Reset();
    StoreValue(kKey, "WPOS22000", "place");
    { const StoredOptions stored{{}}; }
    EXPECT_TRUE(KeyExists(kKey));
    EXPECT_EQ(StoredValue(kKey, "ZKCF22000"), std::nullopt);
    StoreValue(kKey, "ZKCF22000", "mine");
    { const StoredOptions stored{{}}; }
    EXPECT_EQ(StoredValue(kKey, "ZKCF22000"), "mine");
}

}  // namespace
