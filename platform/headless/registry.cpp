// A registry in memory: the tree lives as long as the process, or until the session is reset.
#include "platform/registry.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <vector>

#include "platform/headless/state.h"

namespace platform {

namespace {

// Names of keys and values differ in more than letter case.
struct NameOrder {
    static unsigned char Folded(char character) noexcept {
        const auto byte = static_cast<unsigned char>(character);
        return byte >= 'a' && byte <= 'z' ? static_cast<unsigned char>(byte - 'a' + 'A') : byte;
    }
    bool operator()(const std::string& left, const std::string& right) const noexcept {
        return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                            [](char a, char b) { return Folded(a) < Folded(b); });
    }
};

struct Value {
    ValueType type = ValueType::kNone;
    std::vector<unsigned char> bytes;
};

struct Node {
    std::map<std::string, std::shared_ptr<Node>, NameOrder> subkeys;
    std::map<std::string, Value, NameOrder> values;
    bool deleted = false;
};

struct Registry {
    std::shared_ptr<Node> root = std::make_shared<Node>();
    std::array<int, 8> callsToRefusal{};  // by RegistryCall; 0 = none is refused
    int calls = 0;
    int firstRefused = 0;  // by number of the call; 0 = none
    int lastRefused = 0;
    int openKeys = 0;
};

Registry& TheRegistry() {
    static Registry registry;
    return registry;
}

bool IsRefused(headless::RegistryCall call) noexcept {
    Registry& registry = TheRegistry();
    ++registry.calls;
    int& left = registry.callsToRefusal[static_cast<std::size_t>(call)];
    const bool isNthOfKind = left > 0 && --left == 0;
    return isNthOfKind ||
           (registry.calls >= registry.firstRefused && registry.calls <= registry.lastRefused);
}

std::vector<std::string> SplitPath(const std::string& path) {
    std::vector<std::string> names;
    for (std::size_t begin = 0; begin <= path.size();) {
        const std::size_t end = std::min(path.find('\\', begin), path.size());
        if (end > begin) {
            names.push_back(path.substr(begin, end - begin));
        }
        begin = end + 1;
    }
    return names;
}

std::shared_ptr<Node> FindNode(const std::string& path, bool create) {
    std::shared_ptr<Node> node = TheRegistry().root;
    for (const std::string& name : SplitPath(path)) {
        const auto found = node->subkeys.find(name);
        if (found != node->subkeys.end()) {
            node = found->second;
        } else if (create) {
            node = node->subkeys.emplace(name, std::make_shared<Node>()).first->second;
        } else {
            return nullptr;
        }
    }
    return node;
}

}  // namespace

struct RegistryKey::Handle {
    std::shared_ptr<Node> node;
    bool writable;
};

namespace {

RegistryResult CheckKey(const RegistryKey::Handle* handle, headless::RegistryCall call,
                        bool writes) noexcept {
    if (handle == nullptr) {
        return RegistryResult::kInvalidHandle;
    }
    if (IsRefused(call) || (writes && !handle->writable)) {
        return RegistryResult::kAccessDenied;
    }
    return handle->node->deleted ? RegistryResult::kKeyDeleted : RegistryResult::kSuccess;
}

RegistryKey::Handle* NewHandle(std::shared_ptr<Node> node, bool writable) {
    if (node == nullptr) {
        return nullptr;
    }
    ++TheRegistry().openKeys;
    return new RegistryKey::Handle{std::move(node), writable};
}

}  // namespace

void RegistryKey::CloseHandle::operator()(Handle* handle) const noexcept {
    --TheRegistry().openKeys;
    delete handle;
}

RegistryKey RegistryKey::Open(const std::string& path, KeyAccess access) {
    if (IsRefused(headless::RegistryCall::kOpenKey)) {
        return RegistryKey{nullptr};
    }
    return RegistryKey{NewHandle(FindNode(path, false), access == KeyAccess::kAll)};
}

RegistryKey RegistryKey::Create(const std::string& path) {
    if (IsRefused(headless::RegistryCall::kCreateKey)) {
        return RegistryKey{nullptr};
    }
    return RegistryKey{NewHandle(FindNode(path, true), true)};
}

RegistryResult RegistryKey::QueryValue(const std::string& name, ValueType* type, void* data,
                                       std::uint32_t* size) const {
    const RegistryResult allowed =
        CheckKey(m_handle.get(), headless::RegistryCall::kQueryValue, false);
    if (allowed != RegistryResult::kSuccess) {
        return allowed;
    }
    const auto value = m_handle->node->values.find(name);
    if (value == m_handle->node->values.end()) {
        return RegistryResult::kNotFound;
    }
    const std::vector<unsigned char>& bytes = value->second.bytes;
    const std::uint32_t capacity = *size;
    *type = value->second.type;
    *size = static_cast<std::uint32_t>(bytes.size());
    if (data == nullptr) {
        return RegistryResult::kSuccess;
    }
    if (bytes.size() > capacity) {
        return RegistryResult::kMoreData;
    }
    if (!bytes.empty()) {
        std::memcpy(data, bytes.data(), bytes.size());
    }
    return RegistryResult::kSuccess;
}

RegistryResult RegistryKey::SetBinaryValue(const std::string& name, const void* data,
                                           std::uint32_t size) {
    const RegistryResult allowed =
        CheckKey(m_handle.get(), headless::RegistryCall::kSetValue, true);
    if (allowed != RegistryResult::kSuccess) {
        return allowed;
    }
    const auto* bytes = static_cast<const unsigned char*>(data);
    m_handle->node->values[name] = Value{ValueType::kBinary, {bytes, bytes + size}};
    return RegistryResult::kSuccess;
}

RegistryResult RegistryKey::DeleteValue(const std::string& name) {
    const RegistryResult allowed =
        CheckKey(m_handle.get(), headless::RegistryCall::kDeleteValue, true);
    if (allowed != RegistryResult::kSuccess) {
        return allowed;
    }
    return m_handle->node->values.erase(name) != 0 ? RegistryResult::kSuccess
                                                   : RegistryResult::kNotFound;
}

RegistryResult RegistryKey::EnumValueName(std::uint32_t index, std::string* name) const {
    const RegistryResult allowed =
        CheckKey(m_handle.get(), headless::RegistryCall::kEnumValue, false);
    if (allowed != RegistryResult::kSuccess) {
        return allowed;
    }
    const auto& values = m_handle->node->values;
    if (index >= values.size()) {
        return RegistryResult::kNoMoreItems;
    }
    const std::string& found = std::next(values.begin(), index)->first;
    if (found.size() > 255) {
        return RegistryResult::kMoreData;
    }
    *name = found;
    return RegistryResult::kSuccess;
}

RegistryResult RegistryKey::DeleteSubkey(const std::string& name) {
    const RegistryResult allowed =
        CheckKey(m_handle.get(), headless::RegistryCall::kDeleteKey, true);
    if (allowed != RegistryResult::kSuccess) {
        return allowed;
    }
    auto& subkeys = m_handle->node->subkeys;
    const auto found = subkeys.find(name);
    if (found == subkeys.end()) {
        return RegistryResult::kNotFound;
    }
    if (!found->second->subkeys.empty()) {
        return RegistryResult::kAccessDenied;
    }
    found->second->deleted = true;
    subkeys.erase(found);
    return RegistryResult::kSuccess;
}

RegistryResult RegistryKey::QueryCounts(KeyCounts* counts) const {
    const RegistryResult allowed =
        CheckKey(m_handle.get(), headless::RegistryCall::kQueryInfo, false);
    if (allowed != RegistryResult::kSuccess) {
        return allowed;
    }
    counts->subkeys = static_cast<std::uint32_t>(m_handle->node->subkeys.size());
    counts->values = static_cast<std::uint32_t>(m_handle->node->values.size());
    return RegistryResult::kSuccess;
}

namespace headless {

void ResetRegistry() {
    Registry& registry = TheRegistry();
    registry.root = std::make_shared<Node>();
    registry.callsToRefusal = {};
    headless::RefuseRegistryCalls(0, 0);
}

void RefuseRegistryCall(RegistryCall call, int nth) {
    TheRegistry().callsToRefusal[static_cast<std::size_t>(call)] = nth;
}

void RefuseRegistryCalls(int first, int last) {
    Registry& registry = TheRegistry();
    registry.calls = 0;
    registry.firstRefused = first;
    registry.lastRefused = last;
}

int RegistryCalls() {
    return TheRegistry().calls;
}

int OpenRegistryKeys() {
    return TheRegistry().openKeys;
}

}  // namespace headless

}  // namespace platform
