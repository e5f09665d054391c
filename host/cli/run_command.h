// The program behind its command line.
#pragma once

#include <string>
#include <vector>

namespace standin::cli {

// Takes "--host MANNERS" from the front of the arguments, by which the stand-in behaves as other
// hosts may: see host/score/manners.h. False: there is no such manner, and that was told.
bool TakeManners(std::vector<std::string>& arguments);

// The arguments, in UTF-8, without the program's own name. Returns the exit code.
int RunCommandLine(std::vector<std::string> arguments);

}  // namespace standin::cli
