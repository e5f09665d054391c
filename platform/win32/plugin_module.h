// The instance handle of the plug-in's library; null until it is attached.
#pragma once

#include <windows.h>

namespace platform {

HINSTANCE PluginModule() noexcept;

}  // namespace platform
