#include "host/desktop/script/script_settings.h"

#include <array>
#include <cstdint>
#include <vector>

#include "host/desktop/script/byte_pattern.h"
#include "host/desktop/toolkit/windows_api.h"
#include "platform/registry.h"

namespace standin::desktop {

namespace {

constexpr char kBaseKey[] = "Software\\ZKW\\Finale Plugin Prefs";
constexpr char kMakerKey[] = "Software\\ZKW";
constexpr wchar_t kReadOnly[] = L"D:(A;;KR;;;WD)";
constexpr wchar_t kEverything[] = L"D:(A;;KA;;;WD)";

std::string PathOf(const std::string& key) {
    return key.empty() ? kBaseKey : std::string{kBaseKey} + "\\" + key;
}

bool WriteSetting(const std::string& key, const std::string& value, const std::string& pattern) {
    const auto bytes = BytesOf(pattern);
    auto opened = platform::RegistryKey::Create(PathOf(key));
    return bytes && opened &&
           opened.SetBinaryValue(value, bytes->data(), static_cast<std::uint32_t>(bytes->size())) ==
               platform::RegistryResult::kSuccess;
}

bool DeleteSetting(const std::string& key, const std::string& value) {
    auto opened = platform::RegistryKey::Open(PathOf(key), platform::KeyAccess::kAll);
    return opened && opened.DeleteValue(value) == platform::RegistryResult::kSuccess;
}

std::vector<std::string> KeysBelow(const std::string& path) {
    std::vector<std::string> names;
    HKEY opened = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) {
        return names;
    }
    constexpr DWORD kLongestName = 256;
    std::array<char, kLongestName> name{};
    for (DWORD index = 0;; ++index) {
        DWORD length = kLongestName;
        if (RegEnumKeyExA(opened, index, name.data(), &length, nullptr, nullptr, nullptr,
                          nullptr) != ERROR_SUCCESS) {
            break;
        }
        names.emplace_back(name.data(), length);
    }
    RegCloseKey(opened);
    return names;
}

std::size_t StoredBytesBelow(const std::string& path) {
    auto key = platform::RegistryKey::Open(path, platform::KeyAccess::kRead);
    std::size_t total = 0;
    std::string name;
    for (std::uint32_t index = 0;
         key.EnumValueName(index, &name) == platform::RegistryResult::kSuccess; ++index) {
        platform::ValueType type{};
        std::uint32_t size = 0;
        key.QueryValue(name, &type, nullptr, &size);
        total += size;
    }
    for (const std::string& below : KeysBelow(path)) {
        total += StoredBytesBelow(path + "\\" + below);
    }
    return total;
}

void DeleteAllSettings() {
    RegDeleteTreeA(HKEY_CURRENT_USER, kMakerKey);
    RegDeleteKeyA(HKEY_CURRENT_USER, kMakerKey);
}

}  // namespace

std::optional<std::vector<unsigned char>> ReadSetting(const std::string& key,
                                                      const std::string& value) {
    const auto opened = platform::RegistryKey::Open(PathOf(key), platform::KeyAccess::kRead);
    platform::ValueType type{};
    std::uint32_t size = 0;
    if (opened.QueryValue(value, &type, nullptr, &size) != platform::RegistryResult::kSuccess) {
        return std::nullopt;
    }
    std::vector<unsigned char> bytes(size);
    if (opened.QueryValue(value, &type, bytes.data(), &size) !=
        platform::RegistryResult::kSuccess) {
        return std::nullopt;
    }
    return bytes;
}

bool PrepareSetting(const std::vector<std::string>& words) {
    if (words[0] == "forget") {
        DeleteAllSettings();
        return true;
    }
    if (words[0] != "setting" || words.size() < 4) {
        return false;
    }
    return words[3] == "absent" ? DeleteSetting(words[1], words[2])
                                : WriteSetting(words[1], words[2], words[3]);
}

bool ProtectSettings(const std::string& key, bool isProtected) {
    HKEY opened = nullptr;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, PathOf(key).c_str(), 0, nullptr, 0, WRITE_DAC | KEY_READ,
                        nullptr, &opened, nullptr) != ERROR_SUCCESS) {
        return false;
    }
    PSECURITY_DESCRIPTOR rights = nullptr;
    const bool made =
        ConvertStringSecurityDescriptorToSecurityDescriptorW(
            isProtected ? kReadOnly : kEverything, SDDL_REVISION_1, &rights, nullptr) != 0;
    const bool set =
        made && RegSetKeySecurity(opened, DACL_SECURITY_INFORMATION, rights) == ERROR_SUCCESS;
    LocalFree(rights);
    RegCloseKey(opened);
    return set;
}

std::size_t StoredBytes() {
    return StoredBytesBelow(kBaseKey);
}

}  // namespace standin::desktop
