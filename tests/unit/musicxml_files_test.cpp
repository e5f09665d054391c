// Every available score is read and written: unchanged byte for byte, and the same music if every
// measure is rewritten.
#include "tests/unit/musicxml_support.h"
#include "tests/unit/support/files.h"

namespace standin {
namespace {

namespace fs = std::filesystem;

bool IsScore(const fs::path& file) {
    const std::string extension = file.extension().string();
    return extension == ".xml" || extension == ".musicxml" || extension == ".mxl";
}

class Collection : public testing::TestWithParam<const char*> {};

TEST_P(Collection, SurvivesRoundTrip) {
    std::error_code missing;
    for (const fs::directory_entry& entry : fs::directory_iterator{GetParam(), missing}) {
        const fs::path& file = entry.path();
        if (!IsScore(file)) {
            continue;
        }
        SCOPED_TRACE(file.filename().string());
        const auto score = Read(Content(file));
        if (score->archive.empty()) {
            EXPECT_EQ(WriteScore(*score), Content(file));
        }
        const std::string written = Rebuilt(*score);
        const auto again = Read(written);
        EXPECT_EQ(Differences(*score, written), "");
        EXPECT_EQ(FaultsOfMerge(*score, written), "");
        EXPECT_EQ(Rebuilt(*again), written);
    }
    if (missing) {
        GTEST_SKIP() << "not present";
    }
}
INSTANTIATE_TEST_SUITE_P(Files, Collection, testing::Values(PLYWELD_CORPUS, PLYWELD_SUITE),
                         [](const auto& c) { return c.index == 0 ? "Corpus" : "Suite"; });

}  // namespace
}  // namespace standin
