// Where the merge's options are stored.
#include "Class Files/settings/FinPIUtil.h"
#include "merge/Plyweld.h"
#include "platform/text.h"

namespace {

constexpr const char* kOptionsName = "ZKCF";

// Empty when the name has no form in the system's code page.
std::string PluginKey(const char16* name) {
    return platform::Utf16ToMultiByte(name, platform::CodePage::kAnsi).value_or("");
}

}  // namespace

i32 Plyweld::LoadSettings() {
    const u32 size = GetSettingsSize();
    const u32 found = ZKFX_GetSettings(kOptionsName, static_cast<i16>(GetCommandID()),
                                       GetSettings(), size, PluginKey(GetName()).c_str());
    if (found == 0) {
        m_configData = PlyweldConfigData{};
        return 1;
    }
    m_configData.size = static_cast<u16>(size);
    return static_cast<i32>(size);
}

void Plyweld::SaveSettings() {
    ZKFX_PutSettings(kOptionsName, static_cast<i16>(GetCommandID()), GetSettings(),
                     GetSettingsSize(), PluginKey(GetName()).c_str());
}
