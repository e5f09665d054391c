// The current user's part of the registry. Every operation returns the registry's own result codes;
// names and paths are 8-bit texts in the ANSI code page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace platform {

// The registry's own codes. Other codes may occur: only kSuccess means success.
enum class RegistryResult : std::int32_t {
    kSuccess = 0,
    kNotFound = 2,
    kAccessDenied = 5,
    kInvalidHandle = 6,
    kMoreData = 234,
    kNoMoreItems = 259,
    kKeyDeleted = 1018,
};

enum class KeyAccess : std::uint32_t {
    kRead = 0x20019,
    kAll = 0xF003F,
};

enum class ValueType : std::uint32_t {
    kNone = 0,
    kString = 1,
    kBinary = 3,
    kNumber = 4,
};

struct KeyCounts {
    std::uint32_t subkeys = 0;
    std::uint32_t values = 0;
};

// One open key; closed when the object ends. Made by Open or Create, and false when those
// did not succeed; every operation of a false key answers kInvalidHandle.
class RegistryKey {
public:
    // Paths are relative to HKEY_CURRENT_USER and separate keys with "\".
    static RegistryKey Open(const std::string& path, KeyAccess access);
    // Opens with full access; makes the key, and those above it, when there is none.
    static RegistryKey Create(const std::string& path);

    explicit operator bool() const noexcept { return m_handle != nullptr; }

    void Close() noexcept { m_handle.reset(); }

    // size in: the buffer's bytes (data may be null); out: the value's bytes. With a null
    // buffer the size alone is given and the result is kSuccess. A buffer that is too small
    // stays as it is: kMoreData, with the size of the value.
    RegistryResult QueryValue(const std::string& name, ValueType* type, void* data,
                              std::uint32_t* size) const;
    RegistryResult SetBinaryValue(const std::string& name, const void* data, std::uint32_t size);
    RegistryResult DeleteValue(const std::string& name);
    // The name at an index from 0; names above 255 bytes give kMoreData. Deleting a value
    // moves those after it up.
    RegistryResult EnumValueName(std::uint32_t index, std::string* name) const;
    // Deletes a key below this one; a key that holds keys stays: kAccessDenied.
    RegistryResult DeleteSubkey(const std::string& name);
    RegistryResult QueryCounts(KeyCounts* counts) const;

    struct Handle;

private:
    struct CloseHandle {
        void operator()(Handle* handle) const noexcept;
    };
    explicit RegistryKey(Handle* handle) noexcept : m_handle{handle} {}

    std::unique_ptr<Handle, CloseHandle> m_handle;
};

}  // namespace platform
