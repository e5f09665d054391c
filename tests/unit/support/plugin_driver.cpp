#include "tests/unit/support/plugin_driver.h"

#include <algorithm>
#include <cstring>
#include <dlfcn.h>

#include "host/verify/score_facts.h"
#include "platform/headless/session.h"
#include "tests/unit/support/registry_values.h"

namespace standin {

Plugin::Plugin(const std::string& path)
    : m_library{dlopen(path.empty() ? PLYWELD_PLUGIN : path.c_str(), RTLD_NOW | RTLD_LOCAL)} {
    if (m_library == nullptr) {
        ADD_FAILURE() << dlerror();
        std::abort();
    }
    platform::headless::Reset();
    platform::headless::SetLanguage(platform::headless::Language::kEnglish);
    for (std::size_t i = 0; App().manners.shy && i < kHostCallCount; ++i) {
        if (IsDispensable(static_cast<HostCall>(i))) {
            platform::headless::HideHostFunction(NameOf(static_cast<HostCall>(i)));
        }
    }
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

i16 Plugin::InvokeWithShift(StandIn& host, u16 item) const {
    platform::headless::HoldShift(true);
    const i16 result = Invoke(host, item);
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

void Plugin::StoreSetting(int number, const Setting& setting) {
    constexpr std::size_t kHeader = 160;
    std::vector<u8> record(kHeader + sizeof(MergeOptions));
    record[0] = static_cast<u8>(record.size());
    record[2] = kHeader;
    std::ranges::copy(setting.name, record.begin() + 8);
    record[138] = setting.skipsDialog ? 1 : 0;
    record[140] = setting.identifier;
    record[142] = setting.useSubmenu ? 1 : 0;
    std::memcpy(record.data() + kHeader, &setting.options, sizeof(MergeOptions));
    StoreBytes("Save Settings", "ZKSC" + std::to_string(22000 + number), record.data(),
               static_cast<u32>(record.size()));
}

void Plugin::StoreBytes(const std::string& owner, const std::string& value, const void* data,
                        u32 size) {
    StoreValue(kPreferences + '\\' + owner, value, {static_cast<const char*>(data), size});
}

std::vector<u8> Plugin::Stored(const std::string& owner, const std::string& value) {
    const std::string bytes = StoredValue(kPreferences + '\\' + owner, value).value_or("");
    return {bytes.begin(), bytes.end()};
}

std::vector<std::string> Music(const Document& document) {
    const DocumentContent content = document.Content();
    std::vector<std::string> notes;
    for (const EntryFacts& fact : FactsOf(content)) {
        for (const std::string& note : fact.notes) {
            notes.push_back(fact.Place() + ' ' + note);
        }
    }
    std::ranges::sort(notes);
    return notes;
}

std::string AlertTexts() {
    std::string text;
    for (const Alert& alert : App().alerts) {
        text += "alert " + std::to_string(alert.stringId) + ' ';
        for (const char16_t unit : alert.text) {
            text += static_cast<char>(unit);
        }
        text += '\n';
    }
    return text;
}

std::string Lines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + '\n';
    }
    return text;
}

}  // namespace standin
