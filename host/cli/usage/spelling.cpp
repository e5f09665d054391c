#include "host/cli/usage/spelling.h"

#include <algorithm>

namespace standin::cli {

namespace {

// How many letters must be changed, added, deleted or swapped with their neighbor.
std::size_t Distance(std::string_view a, std::string_view b) {
    std::vector<std::vector<std::size_t>> steps(a.size() + 1,
                                                std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                steps[i][j] = i + j;
                continue;
            }
            const std::size_t changed = steps[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            steps[i][j] = std::min({steps[i - 1][j] + 1, steps[i][j - 1] + 1, changed});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                steps[i][j] = std::min(steps[i][j], steps[i - 2][j - 2] + 1);
            }
        }
    }
    return steps[a.size()][b.size()];
}

}  // namespace

std::string ClosestWord(std::string_view misspelt, const std::vector<std::string>& words) {
    std::string closest;
    std::size_t least = std::max<std::size_t>(1, misspelt.size() / 3) + 1;
    for (const std::string& word : words) {
        const std::size_t distance = Distance(misspelt, word);
        // The beginning of a word matches, too.
        const bool isBegun = misspelt.size() > 3 && word.starts_with(misspelt);
        if (distance < least || (isBegun && closest.empty())) {
            closest = word;
            least = std::min(least, distance);
        }
    }
    return closest;
}

}  // namespace standin::cli
