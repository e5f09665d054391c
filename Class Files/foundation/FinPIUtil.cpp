#include "Class Files/foundation/FinPIUtil.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "Class Files/foundation/FinPITrace.h"
#include "Class Files/foundation/GetRegValue.h"
#include "platform/registry.h"

using platform::KeyAccess;
using platform::RegistryKey;
using platform::RegistryResult;

namespace {

constexpr char kTraceName[] = "Class Files\\FinPIUtil";

// Answers stored under this owner's older key are not taken over; the user is asked again.
constexpr char kDontShowAgainKey[] = "Dont Show Again Alert";

// Settings numbered 21600 were numbered 20700 before.
constexpr i16 kRenumbered = 21600;
constexpr i16 kFormerNumber = 20700;

std::string CurrentPath(const char* pluginKey) {
    return std::string{kSettingsBaseKey} + '\\' + pluginKey;
}
std::string LegacyName(const char* pluginKey) {
    return std::string{"ZKW "} + pluginKey;
}
std::string LegacyPath(const char* pluginKey) {
    return std::string{kSettingsBaseKey} + '\\' + LegacyName(pluginKey);
}
std::string ValueName(const char* name, i16 number) {
    return name + std::to_string(number);
}

// The size of the value found; nothing when there is none.
std::optional<u32> ReadValue(const RegistryKey& key, const std::string& name, void* buffer,
                             u32 size) {
    FinPITrace(kTraceName, __LINE__, "ZKFX_GetSettings: Call GetRegValue %s", name.c_str());
    platform::ValueType type{};
    u32 found = size;
    if (GetRegValue(key, name, &type, buffer, &found) != RegistryResult::kSuccess) {
        return std::nullopt;
    }
    return found;
}

void DeleteLegacyKey(const char* pluginKey) {
    if (RegistryKey base = RegistryKey::Open(kSettingsBaseKey, KeyAccess::kAll)) {
        base.DeleteSubkey(LegacyName(pluginKey));
    }
}

std::optional<u32> ReadCurrent(const char* pluginKey, const std::string& name, void* buffer,
                               u32 size) {
    const std::string path = CurrentPath(pluginKey);
    FinPITrace(kTraceName, __LINE__, "ZKFX_GetSettings: Call RegOpenKeyEx %s", path.c_str());
    const RegistryKey key = RegistryKey::Open(path, KeyAccess::kRead);
    return key ? ReadValue(key, name, buffer, size) : std::nullopt;
}

std::optional<u32> ReadLegacy(const char* pluginKey, const std::string& name, void* buffer,
                              u32 size) {
    if (std::string_view{pluginKey} == kDontShowAgainKey) {
        DeleteLegacyKey(pluginKey);
        return std::nullopt;
    }
    const RegistryKey key = RegistryKey::Open(LegacyPath(pluginKey), KeyAccess::kRead);
    return key ? ReadValue(key, name, buffer, size) : std::nullopt;
}

// The oldest layout has one value for each plug-in key.
std::optional<u32> ReadOldest(const char* pluginKey, void* buffer, u32 size) {
    const RegistryKey base = RegistryKey::Open(kSettingsBaseKey, KeyAccess::kRead);
    return base ? ReadValue(base, pluginKey, buffer, size) : std::nullopt;
}

// The value's size; 0 when no layout holds it, or holds it empty.
u32 ReadAnyLayout(const char* name, i16 number, void* buffer, u32 size, const char* pluginKey) {
    const std::string valueName = ValueName(name, number);
    std::optional<u32> found = ReadCurrent(pluginKey, valueName, buffer, size);
    if (!found) {
        found = ReadLegacy(pluginKey, valueName, buffer, size);
    }
    if (!found) {
        found = ReadOldest(pluginKey, buffer, size);
    }
    return found.value_or(0);
}

// Whether the legacy key is empty then.
bool DeleteLegacyValue(const std::string& name, const char* pluginKey) {
    RegistryKey key = RegistryKey::Open(LegacyPath(pluginKey), KeyAccess::kAll);
    if (!key) {
        return false;
    }
    key.DeleteValue(name);
    platform::KeyCounts counts;
    return key.QueryCounts(&counts) == RegistryResult::kSuccess && counts.subkeys == 0 &&
           counts.values == 0;
}

void RemoveLegacyCopy(const char* name, i16 number, const char* pluginKey) {
    if (DeleteLegacyValue(ValueName(name, number), pluginKey)) {
        DeleteLegacyKey(pluginKey);
    }
}

void RemoveOldestValue(const char* pluginKey) {
    if (RegistryKey base = RegistryKey::Open(kSettingsBaseKey, KeyAccess::kAll)) {
        base.DeleteValue(pluginKey);
    }
}

bool WriteCurrent(const char* pluginKey, const std::string& name, const void* data, u32 size) {
    const std::string path = CurrentPath(pluginKey);
    FinPITrace(kTraceName, __LINE__, "Calling RegCreateKeyEx %s", path.c_str());
    RegistryKey key = RegistryKey::Create(path);
    if (!key) {
        return false;
    }
    FinPITrace(kTraceName, __LINE__, "Calling RegSetValueEx %s: writing %d bytes", name.c_str(),
               static_cast<int>(size));
    return key.SetBinaryValue(name, data, size) == RegistryResult::kSuccess;
}

void DeleteMatchingValues(RegistryKey& key, const std::string& beginning) {
    std::string name;
    for (u32 index = 0;;) {
        const RegistryResult result = key.EnumValueName(index, &name);
        if (result == RegistryResult::kMoreData) {
            ++index;  // a name longer than any of ours
            continue;
        }
        if (result != RegistryResult::kSuccess) {
            return;
        }
        FinPITrace(kTraceName, __LINE__, "ZKFX_DeleteSettings: name for valueIndex %d is %s",
                   static_cast<int>(index), name.c_str());
        if (!name.starts_with(beginning)) {
            FinPITrace(kTraceName, __LINE__, "ZKFX_DeleteSettings: name does not match");
            ++index;
            continue;
        }
        if (key.DeleteValue(name) != RegistryResult::kSuccess) {
            FinPITrace(kTraceName, __LINE__, "ZKFX_DeleteSettings: delete %s failed", name.c_str());
            return;
        }
        // The values behind the deleted one have moved up: the same index again.
        FinPITrace(kTraceName, __LINE__, "ZKFX_DeleteSettings: delete %s succeeded", name.c_str());
    }
}

}  // namespace

u32 ZKFX_GetSettings(const char* name, i16 number, void* buffer, u32 size, const char* pluginKey) {
    u32 found = ReadAnyLayout(name, number, buffer, size, pluginKey);
    if (found == 0 && number == kRenumbered) {
        found = ReadAnyLayout(name, kFormerNumber, buffer, size, pluginKey);
    }
    if (buffer != nullptr && found < size) {
        std::fill(static_cast<u8*>(buffer) + found, static_cast<u8*>(buffer) + size, u8{0});
    }
    return found;
}

i16 ZKFX_PutSettings(const char* name, i16 number, const void* data, u32 size,
                     const char* pluginKey) {
    const bool written = WriteCurrent(pluginKey, ValueName(name, number), data, size);
    RemoveLegacyCopy(name, number, pluginKey);
    RemoveOldestValue(pluginKey);
    return written ? 1 : 0;
}

void ZKFX_DeleteSettings(const char* name, i16 number, const char* pluginKey) {
    if (RegistryKey key = RegistryKey::Create(CurrentPath(pluginKey))) {
        if (number < 0) {
            DeleteMatchingValues(key, name);
        } else {
            key.DeleteValue(ValueName(name, number));
        }
    }
    RemoveLegacyCopy(name, number, pluginKey);
}
