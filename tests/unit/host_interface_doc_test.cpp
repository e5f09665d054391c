// Compares the documentation of the callbacks with their list.
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <string>

#include "host/score/manners.h"

namespace standin {
namespace {

// The results that the table gives, by callback.
std::map<std::string, std::string> Results() {
    std::map<std::string, std::string> results;
    std::ifstream file{PLYWELD_DOCS "/host-interface.md"};
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("| `FX_")) {
            const std::size_t end = line.find('`', 3);
            const std::size_t result = line.find("| ", end) + 2;
            results[line.substr(3, end - 3)] =
                line.substr(result, line.find(" |", result) - result);
        }
    }
    return results;
}

TEST(HostInterface, DocumentsEveryCallback) {
    std::map<std::string, std::string> results = Results();
    for (std::size_t i = 0; i < kHostCallCount; ++i) {
        const auto call = static_cast<HostCall>(i);
        const auto row = results.extract(NameOf(call));
        ASSERT_FALSE(row.empty()) << NameOf(call);
        EXPECT_EQ(row.mapped() == "none", MeaningOf(call) == ResultMeaning::kOpen) << NameOf(call);
        EXPECT_EQ(row.mapped() == "yes or no", MeaningOf(call) == ResultMeaning::kYesOrNo)
            << NameOf(call);
    }
    EXPECT_EQ(results.size(), 0U) << results.begin()->first << " is not a callback";
}

}  // namespace
}  // namespace standin
