// The program behind its command line.
#pragma once

#include <string>
#include <vector>

namespace standin::cli {

// The arguments, in UTF-8, without the program's own name. Returns the exit code.
int RunCommandLine(std::vector<std::string> arguments);

}  // namespace standin::cli
