// Every score of the collections at hand goes in and comes out again: unchanged byte for byte,
// and the same music when every measure is written anew.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/unit/musicxml_support.h"

namespace standin {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> ScoresIn(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code missing;
    for (const fs::directory_entry& entry : fs::directory_iterator{folder, missing}) {
        const std::string extension = entry.path().extension().string();
        if (extension == ".xml" || extension == ".musicxml" || extension == ".mxl") {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string BytesOfFile(const fs::path& file) {
    std::ifstream stream{file, std::ios::binary};
    return {std::istreambuf_iterator<char>{stream}, {}};
}

class Collection : public testing::TestWithParam<const char*> {};

TEST_P(Collection, GoesInAndOut) {
    const std::vector<fs::path> files = ScoresIn(GetParam());
    if (files.empty()) {
        GTEST_SKIP() << "not present";
    }
    for (const fs::path& file : files) {
        SCOPED_TRACE(file.filename().string());
        const auto score = Read(BytesOfFile(file));
        ASSERT_NE(score, nullptr);
        if (score->archive.empty()) {
            EXPECT_EQ(WriteScore(*score), BytesOfFile(file));
        }
        const std::string written = WriteScore(*score, {.rebuildAll = true});
        const auto again = Read(written);
        ASSERT_NE(again, nullptr);
        EXPECT_EQ(Differences(*score, *again), "");
        EXPECT_EQ(Differences(*score, *again, Merged()), "");
        EXPECT_EQ(WriteScore(*again, {.rebuildAll = true}), written);
    }
}
INSTANTIATE_TEST_SUITE_P(Files, Collection, testing::Values(PLYWELD_CORPUS, PLYWELD_SUITE),
                         [](const auto& c) { return c.index == 0 ? "Corpus" : "Suite"; });

}  // namespace
}  // namespace standin
