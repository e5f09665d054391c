// The plug-in's stored settings, as a script reads and prepares them. Keys are those below
// "Software\ZKW\Finale Plugin Prefs"; values are written as hexadecimal digits.
#pragma once

#include <optional>
#include <string>

namespace standin::desktop {

// Nothing when there is no such value.
std::optional<std::string> ReadSetting(const std::string& key, const std::string& value);
// False when the digits cannot be read or the value cannot be written.
bool WriteSetting(const std::string& key, const std::string& value, const std::string& digits);
void DeleteSetting(const std::string& key, const std::string& value);
// Takes all of the plug-in's settings away.
void DeleteAllSettings();
// Lets nobody write settings below the key, or everybody again. False: the system refused.
bool ProtectSettings(const std::string& key, bool isProtected);

// The digits agree, where "?" in the pattern stands for any digit and blanks do not count.
bool MatchesDigits(const std::string& pattern, const std::string& digits);

}  // namespace standin::desktop
