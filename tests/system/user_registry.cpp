#include "tests/system/user_registry.h"

#include <windows.h>

namespace system_test {

std::optional<Value> ReadValue(const std::wstring& key, const std::wstring& name) {
    Value value;
    value.bytes.resize(4096);
    DWORD type = 0;
    DWORD size = static_cast<DWORD>(value.bytes.size());
    if (RegGetValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), RRF_RT_ANY, &type,
                     value.bytes.data(), &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    value.type = type;
    value.bytes.resize(size);
    return value;
}

void WriteValue(const std::wstring& key, const std::wstring& name,
                const std::vector<std::uint8_t>& bytes) {
    RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), REG_BINARY, bytes.data(),
                    static_cast<DWORD>(bytes.size()));
}

void ClearSettings() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kBaseKey.c_str());
}

}  // namespace system_test
