// The plug-in's stored settings, for scripts. Keys are those below "Software\ZKW\Finale Plugin
// Prefs".
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace standin::desktop {

// Nothing if the value does not exist.
std::optional<std::vector<unsigned char>> ReadSetting(const std::string& key,
                                                      const std::string& value);
// Executes "forget", which deletes all of the plug-in's settings, or "setting KEY VALUE BYTES",
// where "absent" deletes the value. False: neither of these, or it failed.
bool PrepareSetting(const std::vector<std::string>& words);
// Forbids or allows writing settings below the key. False: the system refused.
bool ProtectSettings(const std::string& key, bool isProtected);
// The bytes of all values, those of the keys below included.
std::size_t StoredBytes();

}  // namespace standin::desktop
