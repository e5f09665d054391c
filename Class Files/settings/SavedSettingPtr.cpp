#include "Class Files/settings/SavedSettingPtr.h"

#include <algorithm>
#include <string_view>

#include "Class Files/foundation/FinPIException.h"
#include "Class Files/foundation/FinPIUniStringUtil.h"
#include "Class Files/foundation/FinPIUtil.h"
#include "Class Files/settings/SavedSettings.h"
#include "platform/text.h"
#include "shell/module/ModuleState.h"

namespace {

constexpr u16 kHeaderSize = sizeof(SavedSettingHeader);

}  // namespace

SavedSettingPtr::SavedSettingPtr(u32 settingsSize) : m_record(kHeaderSize + settingsSize) {
    StampHeader();
}

SavedSettingHeader& SavedSettingPtr::Header() noexcept {
    return *reinterpret_cast<SavedSettingHeader*>(m_record.data());
}

const SavedSettingHeader& SavedSettingPtr::Header() const noexcept {
    return *reinterpret_cast<const SavedSettingHeader*>(m_record.data());
}

void SavedSettingPtr::StampHeader() noexcept {
    Header().totalSize = static_cast<u16>(m_record.size());
    Header().headerSize = kHeaderSize;
    Header().hostVersion = HostVersion();
}

i32 SavedSettingPtr::GetFromFile(i16 number) {
    const u32 found = ZKFX_GetSettings(SavedSettings::kName, number, m_record.data(),
                                       static_cast<u32>(m_record.size()), SavedSettings::kOwner);
    if (found != 0 && Header().headerSize != kHeaderSize) {
        PostError(FinPIAppError(
            "long __cdecl SavedSettingPtr::GetFromFile(const short)",
            "The stored settings are not compatible with the current version of the plugin."));
        ReportPendingError();
        return 0;
    }
    return static_cast<i32>(found);
}

i16 SavedSettingPtr::PutToFile(i16 number) {
    const i16 result = ZKFX_PutSettings(SavedSettings::kName, number, m_record.data(),
                                        static_cast<u32>(m_record.size()), SavedSettings::kOwner);
    if (result == 0) {
        PostError(FinPIConfigWriteError("SavedSettingPtr::PutToFile"));
    }
    return result;
}

std::u16string SavedSettingPtr::Name() const {
    const char* stored = Header().name;
    const std::string name(stored, std::find(stored, stored + sizeof(Header().name), '\0'));
    char16 units[sizeof(Header().name) + 1];
    return FinPIUniStringUtil::UniChar_Utf16encode(units, name.c_str(), std::size(units));
}

void SavedSettingPtr::SetName(const std::u16string& name) {
    std::vector<char> utf8(3 * name.size() + 1);
    FinPIUniStringUtil::UniChar_Utf8encode(utf8.data(), name.c_str(), utf8.size());
    char(&stored)[128] = Header().name;
    const std::string_view cut = platform::CutUtf8(utf8.data(), sizeof(stored) - 1);
    std::ranges::fill(stored, '\0');
    std::ranges::copy(cut, stored);
}
