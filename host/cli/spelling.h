// What a misspelt word was meant to be.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace standin::cli {

// The word that differs least, by letters left out, added, changed or swapped; empty when none is
// near enough to be meant.
std::string ClosestWord(std::string_view misspelt, const std::vector<std::string>& words);

}  // namespace standin::cli
