// Tables of cases, each a test of its own that can be run by its name: a row has a name, and
//     friend void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }
// by which it is listed.
#pragma once

#include <gtest/gtest.h>
#include <ostream>
#include <string>

namespace standin {

// The last argument of INSTANTIATE_TEST_SUITE_P: a test is named for its row.
inline constexpr auto kByName = [](const auto& row) { return std::string{row.param.name}; };

}  // namespace standin
