// Suggestions for misspelled words.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace standin::cli {

// The word that differs least, by letters deleted, added, changed or swapped; empty if none is
// close enough.
std::string ClosestWord(std::string_view misspelt, const std::vector<std::string>& words);

}  // namespace standin::cli
