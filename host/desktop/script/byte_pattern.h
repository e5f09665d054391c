// The bytes of a script: hexadecimal digits in groups, 'text' for its UTF-8, and XX*N for N times
// the same. "?" matches any digit.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace standin::desktop {

// The digits alone, two a byte, in lower case. Nothing when the pattern cannot be read.
std::optional<std::string> DigitsOf(std::string_view pattern);

// Nothing when the pattern cannot be read or leaves digits open.
std::optional<std::vector<unsigned char>> BytesOf(std::string_view pattern);

std::string DigitsOf(const std::vector<unsigned char>& bytes);

// False also when the pattern cannot be read.
bool Matches(std::string_view pattern, const std::vector<unsigned char>& bytes);

}  // namespace standin::desktop
