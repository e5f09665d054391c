#include "tests/unit/plugin_driver.h"

#include <algorithm>
#include <dlfcn.h>
#include <sstream>

#include "platform/headless/session.h"
#include "platform/registry.h"

namespace standin {

namespace {

const std::string kPreferences = "Software\\ZKW\\Finale Plugin Prefs\\";

}  // namespace

Plugin::Plugin(const std::string& path)
    : m_library{dlopen(path.empty() ? PLYWELD_PLUGIN : path.c_str(), RTLD_NOW | RTLD_LOCAL)} {
    if (m_library == nullptr) {
        ADD_FAILURE() << dlerror();
        std::abort();
    }
    platform::headless::Reset();
    platform::headless::SetLanguage(platform::headless::Language::kEnglish);
    Find(m_version, "FinaleExtensionVersion");
    Find(m_init, "FinaleExtensionInit");
    Find(m_enumerate, "FinaleExtensionEnumerate_UTF16");
    Find(m_status, "FinaleExtensionGetMenuStatus");
    Find(m_invoke, "FinaleExtensionInvoke");
    Find(m_terminate, "FinaleExtensionTerminate");
}

Plugin::~Plugin() {
    m_terminate();
    EXPECT_EQ(platform::headless::OpenRegistryKeys(), 0);
    platform::headless::Reset();
    dlclose(m_library);
}

template <typename Function>
void Plugin::Find(Function*& function, const char* name) {
    function = reinterpret_cast<Function*>(dlsym(m_library, name));
    EXPECT_NE(function, nullptr) << name;
}

i16 Plugin::Invoke(StandIn& host, u16 item) const {
    const EREGION whole = host.Score().WholeRegion();
    const EREGION* selection = host.Score().selection ? &*host.Score().selection : nullptr;
    return m_invoke(nullptr, item, selection, &whole);
}

i16 Plugin::InvokeWithShift(StandIn& host) const {
    platform::headless::HoldShift(true);
    const i16 result = Invoke(host);
    platform::headless::HoldShift(false);
    return result;
}

void Plugin::Merge(StandIn& host, const MergeOptions& options) const {
    Store(options);
    InvokeWithShift(host);
}

void Plugin::Store(const MergeOptions& options) {
    StoreBytes("Plyweld", "ZKCF22000", &options, sizeof(options));
}

void Plugin::StoreBytes(const std::string& owner, const std::string& value, const void* data,
                        u32 size) {
    auto key = platform::RegistryKey::Create(kPreferences + owner);
    EXPECT_EQ(key.SetBinaryValue(value, data, size), platform::RegistryResult::kSuccess);
}

std::vector<u8> Plugin::Stored(const std::string& owner, const std::string& value) {
    const auto key = platform::RegistryKey::Open(kPreferences + owner, platform::KeyAccess::kRead);
    platform::ValueType type{};
    u32 size = 0;
    if (key.QueryValue(value, &type, nullptr, &size) != platform::RegistryResult::kSuccess) {
        return {};
    }
    std::vector<u8> bytes(size);
    key.QueryValue(value, &type, bytes.data(), &size);
    return bytes;
}

std::vector<std::string> Music(const Document& document) {
    std::vector<std::string> notes;
    for (const auto& [key, frame] : document.Frames()) {
        for (const EXENTRY& entry : frame.entries) {
            if ((entry.flags & EntryFlag::kNote) == 0) {
                continue;
            }
            for (i16 i = 0; i < entry.noteCount; ++i) {
                std::ostringstream line;
                line << key.staff << ' ' << key.measure << ' ' << entry.elapsedTime << '+'
                     << entry.actualDuration << ' ' << entry.notes[i].pitch << ' '
                     << (entry.notes[i].flags & (NoteFlag::kTieStart | NoteFlag::kTieEnd));
                notes.push_back(line.str());
            }
        }
    }
    std::sort(notes.begin(), notes.end());
    return notes;
}

}  // namespace standin
