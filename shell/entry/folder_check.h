// The folders of other plug-ins beside which this one does not start.
#pragma once

#include <string>

// True when the folder of this file (UTF-8 path) holds a folder of one of the names that keep
// the plug-in from starting, with or without an extension. A folder that cannot be listed
// holds none.
bool HoldsForeignFolder(const std::string& pluginFile);
