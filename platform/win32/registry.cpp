#include "platform/registry.h"

#include <windows.h>

#include <array>

namespace platform {

struct RegistryKey::Handle {
    HKEY key;
};

namespace {

RegistryResult Result(LSTATUS status) noexcept {
    return static_cast<RegistryResult>(status);
}

}  // namespace

void RegistryKey::CloseHandle::operator()(Handle* handle) const noexcept {
    RegCloseKey(handle->key);
    delete handle;
}

RegistryKey RegistryKey::Open(const std::string& path, KeyAccess access) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, static_cast<REGSAM>(access), &key) !=
        ERROR_SUCCESS) {
        return RegistryKey{nullptr};
    }
    return RegistryKey{new Handle{key}};
}

RegistryKey RegistryKey::Create(const std::string& path) {
    HKEY key = nullptr;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_ALL_ACCESS, nullptr, &key, nullptr) != ERROR_SUCCESS) {
        return RegistryKey{nullptr};
    }
    return RegistryKey{new Handle{key}};
}

RegistryResult RegistryKey::QueryValue(const std::string& name, ValueType* type, void* data,
                                       std::uint32_t* size) const {
    if (!*this) {
        return RegistryResult::kInvalidHandle;
    }
    DWORD valueType = REG_NONE;
    DWORD bytes = *size;
    const LSTATUS status = RegQueryValueExA(m_handle->key, name.c_str(), nullptr, &valueType,
                                            static_cast<BYTE*>(data), &bytes);
    *type = static_cast<ValueType>(valueType);
    *size = bytes;
    return Result(status);
}

RegistryResult RegistryKey::SetBinaryValue(const std::string& name, const void* data,
                                           std::uint32_t size) {
    if (!*this) {
        return RegistryResult::kInvalidHandle;
    }
    return Result(RegSetValueExA(m_handle->key, name.c_str(), 0, REG_BINARY,
                                 static_cast<const BYTE*>(data), size));
}

RegistryResult RegistryKey::DeleteValue(const std::string& name) {
    if (!*this) {
        return RegistryResult::kInvalidHandle;
    }
    return Result(RegDeleteValueA(m_handle->key, name.c_str()));
}

RegistryResult RegistryKey::EnumValueName(std::uint32_t index, std::string* name) const {
    if (!*this) {
        return RegistryResult::kInvalidHandle;
    }
    std::array<char, 256> buffer{};
    DWORD length = static_cast<DWORD>(buffer.size());
    const LSTATUS status = RegEnumValueA(m_handle->key, index, buffer.data(), &length, nullptr,
                                         nullptr, nullptr, nullptr);
    if (status == ERROR_SUCCESS) {
        name->assign(buffer.data(), length);
    }
    return Result(status);
}

RegistryResult RegistryKey::DeleteSubkey(const std::string& name) {
    if (!*this) {
        return RegistryResult::kInvalidHandle;
    }
    return Result(RegDeleteKeyA(m_handle->key, name.c_str()));
}

RegistryResult RegistryKey::QueryCounts(KeyCounts* counts) const {
    if (!*this) {
        return RegistryResult::kInvalidHandle;
    }
    DWORD subkeys = 0;
    DWORD values = 0;
    const LSTATUS status =
        RegQueryInfoKeyA(m_handle->key, nullptr, nullptr, nullptr, &subkeys, nullptr, nullptr,
                         &values, nullptr, nullptr, nullptr, nullptr);
    *counts = {subkeys, values};
    return Result(status);
}

}  // namespace platform
