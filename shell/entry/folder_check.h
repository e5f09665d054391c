// The folders of other plug-ins beside which this one refuses to start.
#pragma once

#include <string>

// True when the folder of this file (UTF-8 path) contains a folder with one of the names that keep
// the plug-in from starting, with or without an extension. False when it cannot be listed.
bool HoldsForeignFolder(const std::string& pluginFile);
