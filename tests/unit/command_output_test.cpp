// The program's traces: its output file, and the user's stored options.
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "host/cli/io/held_interrupt.h"
#include "host/cli/io/output_file.h"
#include "host/cli/io/stored_options.h"
#include "host/system/machine.h"
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

TEST_F(OutputFile, InterruptWaitsUntilPartIsRemoved) {
    static int interrupts = 0;
    interrupts = 0;
    auto* const before = std::signal(SIGINT, [](int) { ++interrupts; });
    {
        const HeldInterrupt held;
        std::raise(SIGINT);
        EXPECT_NE(WriteWhole((folder / "score.xml").string(), "<score/>"), "");
        EXPECT_EQ(FilesInFolder(), 0U);
        EXPECT_EQ(interrupts, 0);
    }
    EXPECT_EQ(interrupts, 1);
    EXPECT_EQ(WriteWhole((folder / "score.xml").string(), "<score/>"), "") << "it is over";
    std::signal(SIGINT, SIG_IGN);
    {
        const HeldInterrupt held;
        std::raise(SIGINT);
        EXPECT_FALSE(HeldInterrupt::HasCome());
    }
    std::signal(SIGINT, before);
}

TEST_F(OutputFile, KeepsPermissions) {
    const fs::path file = folder / "score.musicxml";
    std::ofstream{file} << "old";
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(WriteWhole(file.string(), std::string_view{"a\0b", 3}), "");
    EXPECT_EQ(Content(file), (std::string{"a\0b", 3}));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(OutputFile, KeepsLinks) {
    std::ofstream{folder / "real"} << "old";
    fs::create_symlink("real", folder / "link");
    EXPECT_EQ(WriteWhole((folder / "link").string(), "new"), "");
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(Content(folder / "real"), "new");
    fs::remove(folder / "real");
    EXPECT_EQ(WriteWhole((folder / "link").string(), "again"), "") << "with nothing at its end yet";
    EXPECT_EQ(Content(folder / "real"), "again");
    EXPECT_EQ(FilesInFolder(), 2U);
}

TEST_F(OutputFile, ErrorGivesReason) {
    fs::create_symlink("a", folder / "b");
    fs::create_symlink("b", folder / "a");
    const std::string tooManyLinks =
        std::make_error_code(std::errc::too_many_symbolic_link_levels).message();
    for (const auto& [target, reason] :
         {std::pair{(folder / "missing/score.xml").string(), std::string{"no such file or folder"}},
          {(folder / "a").string(), tooManyLinks},
          {"/dev/full", "no space left on the device"}}) {
        EXPECT_EQ(WriteWhole(target, "new"), "cannot be written: " + reason);
    }
    EXPECT_EQ(FilesInFolder(), 2U);
}

TEST_F(OutputFile, FailureLeavesNothing) {
    standin::machine::PrepareStreams();
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    rlimit small = before;
    small.rlim_cur = 1000;
    setrlimit(RLIMIT_FSIZE, &small);
    const std::string problem = WriteWhole((folder / "score.xml").string(), std::string(2000, 'a'));
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_NE(problem, "") << "too large";
    EXPECT_NE(WriteWhole(folder.Path().string(), "new"), "");
    EXPECT_EQ(FilesInFolder(), 0U);
    std::ofstream{folder / "score.mxl"} << "old";
    EXPECT_NE(WriteWhole((folder / "score.mxl").string(), ""), "") << "could not be assembled";
    EXPECT_EQ(Content(folder / "score.mxl"), "old");
}

TEST(StoredOptions, AreRestored) {
    const std::string key = kPreferences + "\\Plyweld";
    platform::headless::Reset();
    { const StoredOptions stored{{}}; }
    EXPECT_FALSE(KeyExists(key));
    EXPECT_TRUE(platform::RegistryKey::Create(key));  // the user has it, and nothing in it
    {
        const StoredOptions stored{{.source = 1, .destination = 2, .hideAddedRests = 1}};
        EXPECT_TRUE(stored);
        EXPECT_EQ(StoredValue(key, "ZKCF22000"), (std::string{"\x0c\0\1\0\2\0\0\0\1\0\1\0", 12}));
    }
    EXPECT_TRUE(KeyExists(key));
    EXPECT_EQ(StoredValue(key, "ZKCF22000"), std::nullopt);
    StoreValue(key, "ZKCF22000", "mine");
    { const StoredOptions stored{{}}; }
    EXPECT_EQ(StoredValue(key, "ZKCF22000"), "mine") << "the user's own come back";
    EXPECT_EQ(platform::headless::OpenRegistryKeys(), 0);
}

}  // namespace
