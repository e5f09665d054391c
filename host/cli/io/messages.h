// Lines for a person on standard error. Each begins with the program's name.
#pragma once

#include <string>

namespace standin::cli {

// "plyweld: PROBLEM"
void Complain(const std::string& problem);

// "plyweld: score.xml:7: warning: WORDS"
void Warn(const std::string& place, const std::string& words);

// How messages name a score given on the command line, and a line in it: "score.xml:7". line: from
// 1; 0 when there is none.
std::string PlaceIn(const std::string& score, std::size_t line);

}  // namespace standin::cli
