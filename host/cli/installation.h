// Where the parts of the program are.
#pragma once

#include <string>

namespace standin::cli {

// The plug-in beside the program, or where a package puts it; where it was looked for first when
// there is none.
std::string PluginFile();

// The user's guide in the language of the texts; empty when it is not installed.
std::string GuideFile();

}  // namespace standin::cli
