// The command-line program.
#pragma once

#include <string>
#include <vector>

namespace standin::cli {

// Takes "--host MANNERS" from the front of the arguments and gives the stand-in these manners; see
// host/score/manners.h. False: unknown manner, with a message printed.
bool TakeManners(std::vector<std::string>& arguments);

// The arguments, in UTF-8, without the program's own name. Returns the exit code.
int RunCommandLine(std::vector<std::string> arguments);

}  // namespace standin::cli
