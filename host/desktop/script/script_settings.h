// The plug-in's stored settings, as a script reads and prepares them. Keys are those below
// "Software\ZKW\Finale Plugin Prefs".
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace standin::desktop {

// Nothing when there is no such value.
std::optional<std::vector<unsigned char>> ReadSetting(const std::string& key,
                                                      const std::string& value);
// Carries out "forget", which takes all of the plug-in's settings away, or "setting KEY VALUE
// BYTES", where "absent" takes the value away. False: it is neither, or it was not done.
bool PrepareSetting(const std::vector<std::string>& words);
// Lets nobody write settings below the key, or everybody again. False: the system refused.
bool ProtectSettings(const std::string& key, bool isProtected);
// The bytes of all values, those of the keys below included.
std::size_t StoredBytes();

}  // namespace standin::desktop
