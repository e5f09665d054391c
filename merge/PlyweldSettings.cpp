// Where the merge's options are stored.
#include "Class Files/FinPISaveSettingsDlg.h"
#include "Class Files/foundation/FinPIUtil.h"
#include "Class Files/settings/SavedSettings.h"
#include "merge/Plyweld.h"
#include "platform/text.h"

namespace {

constexpr const char* kOptionsName = "ZKCF";

// Empty if the name cannot be converted to the system's code page.
std::string PluginKey(const char16* name) {
    return platform::Utf16ToMultiByte(name, platform::CodePage::kAnsi).value_or("");
}

}  // namespace

u32 Plyweld::ReadStoredSettings() {
    if (m_savedSetting != 0) {
        return ReadSavedSettingRecord(GetCommandID(), m_savedSetting, GetSettings(),
                                      GetSettingsSize());
    }
    return ZKFX_GetSettings(kOptionsName, static_cast<i16>(GetCommandID()), GetSettings(),
                            GetSettingsSize(), PluginKey(GetName()).c_str());
}

i32 Plyweld::LoadSettings() {
    if (ReadStoredSettings() == 0) {
        m_configData = PlyweldConfigData{};
        return 1;
    }
    m_configData.size = static_cast<u16>(GetSettingsSize());
    return static_cast<i32>(GetSettingsSize());
}

void Plyweld::SaveSettings() {
    if (m_savedSetting != 0) {
        FinPISaveSettingsDlg::PutSavedSettings(GetCommandID(), SavedSettingNumber(), GetSettings(),
                                               GetSettingsSize());
        return;
    }
    ZKFX_PutSettings(kOptionsName, static_cast<i16>(GetCommandID()), GetSettings(),
                     GetSettingsSize(), PluginKey(GetName()).c_str());
}
