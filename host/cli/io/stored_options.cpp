#include "host/cli/io/stored_options.h"

#include "platform/registry.h"

namespace standin::cli {

namespace {

const char* const kCommand = "Plyweld";
const char* const kValue = "ZKCF22000";

std::string CommandKey() {
    return std::string{kBaseKey} + "\\" + kCommand;
}

std::optional<std::vector<u8>> ReadValue(const platform::RegistryKey& key) {
    using platform::RegistryResult;
    platform::ValueType type{};
    u32 size = 0;
    if (key.QueryValue(kValue, &type, nullptr, &size) != RegistryResult::kSuccess) {
        return std::nullopt;
    }
    std::vector<u8> bytes(size);
    if (key.QueryValue(kValue, &type, bytes.data(), &size) != RegistryResult::kSuccess) {
        return std::nullopt;
    }
    return bytes;
}

}  // namespace

StoredOptions::StoredOptions(const MergeOptions& options) {
    using platform::KeyAccess;
    using platform::RegistryKey;
    if (const RegistryKey key = RegistryKey::Open(CommandKey(), KeyAccess::kRead)) {
        m_hadKey = true;
        m_before = ReadValue(key);
    }
    RegistryKey key = RegistryKey::Create(CommandKey());
    m_written =
        key.SetBinaryValue(kValue, &options, sizeof(options)) == platform::RegistryResult::kSuccess;
}

StoredOptions::~StoredOptions() {
    using platform::KeyAccess;
    using platform::RegistryKey;
    RegistryKey key = RegistryKey::Open(CommandKey(), KeyAccess::kAll);
    if (m_before) {
        key.SetBinaryValue(kValue, m_before->data(), static_cast<u32>(m_before->size()));
        return;
    }
    key.DeleteValue(kValue);
    platform::KeyCounts left;
    if (!m_hadKey && key.QueryCounts(&left) == platform::RegistryResult::kSuccess &&
        left.subkeys == 0 && left.values == 0) {
        key.Close();
        RegistryKey::Open(kBaseKey, KeyAccess::kAll).DeleteSubkey(kCommand);
    }
}

}  // namespace standin::cli
