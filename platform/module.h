// The modules of the process: the host program's exports, and the plug-in's own file.
#pragma once

#include <string>

namespace platform {

// The address of a function that the host program exports under this exact name; null when
// it exports none. The host's module is found once, at the first call.
void* FindHostFunction(const char* name) noexcept;

// Sets which module is the plug-in: its instance handle on Windows, any address inside it
// elsewhere. Called when the library is attached to the process.
void SetPluginModule(void* module) noexcept;

// The full path of the plug-in's own file, UTF-8; empty if the system does not give it.
std::string PluginFilePath();

}  // namespace platform
