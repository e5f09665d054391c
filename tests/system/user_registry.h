// The plug-in's values in the real registry, read and written past the plug-in.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace system_test {

inline const std::wstring kBaseKey = L"Software\\ZKW\\Finale Plugin Prefs";

inline constexpr std::uint32_t kBinary = 3;  // the registry's type of such a value

struct Value {
    std::uint32_t type = 0;
    std::vector<std::uint8_t> bytes;
};

// Nothing if the key or value does not exist under HKEY_CURRENT_USER.
std::optional<Value> ReadValue(const std::wstring& key, const std::wstring& name);
void WriteValue(const std::wstring& key, const std::wstring& name,
                const std::vector<std::uint8_t>& bytes);
// Removes the base key and all below it.
void ClearSettings();

}  // namespace system_test
