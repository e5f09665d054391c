#include "host/desktop/script_settings.h"

#include <cstdint>
#include <sddl.h>
#include <vector>

#include "host/desktop/windows_api.h"
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

std::string Digits(const std::vector<unsigned char>& bytes) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string digits;
    for (const unsigned char byte : bytes) {
        digits += kDigits[byte >> 4U];
        digits += kDigits[byte & 15U];
    }
    return digits;
}

std::optional<unsigned> DigitOf(char character) {
    if (character >= '0' && character <= '9') {
        return static_cast<unsigned>(character - '0');
    }
    if (character >= 'a' && character <= 'f') {
        return static_cast<unsigned>(character - 'a' + 10);
    }
    return std::nullopt;
}

std::optional<std::vector<unsigned char>> Bytes(std::string digits) {
    std::erase(digits, ' ');
    std::vector<unsigned char> bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
        const auto high = DigitOf(digits[i]);
        const auto low = DigitOf(digits[i + 1]);
        if (!high || !low) {
            return std::nullopt;
        }
        bytes.push_back(static_cast<unsigned char>(*high << 4U | *low));
    }
    return digits.size() % 2 == 0 ? std::optional{bytes} : std::nullopt;
}

}  // namespace

std::optional<std::string> ReadSetting(const std::string& key, const std::string& value) {
    const auto opened = platform::RegistryKey::Open(PathOf(key), platform::KeyAccess::kRead);
    std::uint32_t size = 0;
    if (opened.QueryValue(value, nullptr, nullptr, &size) != platform::RegistryResult::kSuccess) {
        return std::nullopt;
    }
    std::vector<unsigned char> bytes(size);
    if (opened.QueryValue(value, nullptr, bytes.data(), &size) !=
        platform::RegistryResult::kSuccess) {
        return std::nullopt;
    }
    return Digits(bytes);
}

bool WriteSetting(const std::string& key, const std::string& value, const std::string& digits) {
    const auto bytes = Bytes(digits);
    auto opened = platform::RegistryKey::Create(PathOf(key));
    return bytes && opened &&
           opened.SetBinaryValue(value, bytes->data(), static_cast<std::uint32_t>(bytes->size())) ==
               platform::RegistryResult::kSuccess;
}

void DeleteSetting(const std::string& key, const std::string& value) {
    auto opened = platform::RegistryKey::Open(PathOf(key), platform::KeyAccess::kAll);
    if (opened) {
        opened.DeleteValue(value);
    }
}

void DeleteAllSettings() {
    RegDeleteTreeA(HKEY_CURRENT_USER, kMakerKey);
    RegDeleteKeyA(HKEY_CURRENT_USER, kMakerKey);
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

bool MatchesDigits(const std::string& pattern, const std::string& digits) {
    std::string compact = pattern;
    std::erase(compact, ' ');
    if (compact.size() != digits.size()) {
        return false;
    }
    for (std::size_t i = 0; i < compact.size(); ++i) {
        if (compact[i] != '?' && compact[i] != digits[i]) {
            return false;
        }
    }
    return true;
}

}  // namespace standin::desktop
