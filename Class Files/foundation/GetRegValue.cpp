#include "Class Files/foundation/GetRegValue.h"

#include <algorithm>
#include <vector>

using platform::RegistryResult;

namespace {

RegistryResult ReadLongerValue(const platform::RegistryKey& key, const std::string& name,
                               platform::ValueType* type, void* buffer, u32 capacity, u32* size) {
    std::vector<u8> value(*size);
    const RegistryResult result = key.QueryValue(name, type, value.data(), size);
    if (result == RegistryResult::kSuccess) {
        std::copy_n(value.data(), std::min(capacity, *size), static_cast<u8*>(buffer));
    }
    return result;
}

}  // namespace

RegistryResult GetRegValue(const platform::RegistryKey& key, const std::string& name,
                           platform::ValueType* type, void* buffer, u32* size) {
    const u32 capacity = buffer == nullptr ? 0 : *size;
    *size = capacity;
    RegistryResult result = key.QueryValue(name, type, buffer, size);
    if (result == RegistryResult::kMoreData) {
        result = buffer == nullptr ? RegistryResult::kSuccess
                                   : ReadLongerValue(key, name, type, buffer, capacity, size);
    }
    if (result != RegistryResult::kSuccess) {
        *size = 0;
    }
    return result;
}
