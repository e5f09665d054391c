// The paths of the program's parts.
#pragma once

#include <string>

namespace standin::cli {

// The plug-in beside the program, or where a package installs it; if missing, the first path tried.
std::string PluginFile();

// The user's guide in the language of the texts; empty when it is not installed.
std::string GuideFile();

}  // namespace standin::cli
