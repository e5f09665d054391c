// Reading one value of an open registry key, whatever its size.
#pragma once

#include <string>

#include "platform/registry.h"
#include "shell/host/host_types.h"

// Below HKEY_CURRENT_USER; the settings of all plug-ins of the maker are values of its keys.
inline constexpr char kSettingsBaseKey[] = "Software\\ZKW\\Finale Plugin Prefs";

// size in: the buffer's bytes; out: the value's full size in bytes, 0 on failure. A longer
// value fills the buffer with its first bytes; a null buffer asks for the size only. Gives the
// registry's result.
platform::RegistryResult GetRegValue(const platform::RegistryKey& key, const std::string& name,
                                     platform::ValueType* type, void* buffer, u32* size);
