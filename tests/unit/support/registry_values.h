// Values in the headless platform's registry, written and read past the plug-in.
#pragma once

#include <gtest/gtest.h>
#include <optional>
#include <string>

#include "platform/registry.h"

inline const std::string kPreferences = "Software\\ZKW\\Finale Plugin Prefs";

inline void StoreValue(const std::string& key, const std::string& name, const std::string& bytes) {
    EXPECT_EQ(platform::RegistryKey::Create(key).SetBinaryValue(
                  name, bytes.data(), static_cast<std::uint32_t>(bytes.size())),
              platform::RegistryResult::kSuccess);
}

// Nothing when the key or the value is missing.
inline std::optional<std::string> StoredValue(const std::string& key, const std::string& name) {
    std::string bytes(512, '\0');
    platform::ValueType type{};
    auto size = static_cast<std::uint32_t>(bytes.size());
    if (platform::RegistryKey::Open(key, platform::KeyAccess::kRead)
            .QueryValue(name, &type, bytes.data(), &size) != platform::RegistryResult::kSuccess) {
        return std::nullopt;
    }
    EXPECT_EQ(type, platform::ValueType::kBinary);
    return bytes.substr(0, size);
}

inline bool KeyExists(const std::string& key) {
    return static_cast<bool>(platform::RegistryKey::Open(key, platform::KeyAccess::kRead));
}
