// The paths of the program's parts.
#pragma once

#include <string>
#include <vector>

namespace standin::cli {

// The plug-in beside the program, or where a package installs it; if missing, the first path tried.
std::string PluginFile();

// That file, then the other plug-ins in its folder.
std::vector<std::string> PluginFiles();

// The script of the engraver that report pages hold; where it was looked for first when there is
// none.
std::string EngraverFile();

// The user's guide in the language of the texts; empty when it is not installed.
std::string GuideFile();

}  // namespace standin::cli
