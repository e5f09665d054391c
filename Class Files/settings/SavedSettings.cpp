#include "Class Files/settings/SavedSettings.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Class Files/foundation/FinPIException.h"
#include "Class Files/foundation/FinPIUtil.h"
#include "Class Files/foundation/GetRegValue.h"
#include "Class Files/settings/SavedSettingPtr.h"
#include "platform/registry.h"

u16 g_savedSettingsChanged = 0;

using platform::RegistryResult;

namespace {

constexpr char kOldOwner[] = "Einstellungen speichern";
constexpr std::size_t kStoredNameUnits = 128;

bool g_movedFromOldOwner = false;

// kNotFound: the value does not exist.
RegistryResult CopyFromOldOwner(const platform::RegistryKey& oldKey, i16 number) {
    const std::string name = SavedSettings::kName + std::to_string(number);
    platform::ValueType type{};
    u32 size{};
    RegistryResult result = GetRegValue(oldKey, name, &type, nullptr, &size);
    std::vector<u8> record(size);
    if (result == RegistryResult::kSuccess) {
        result = GetRegValue(oldKey, name, &type, record.data(), &size);
    }
    if (result == RegistryResult::kSuccess &&
        ZKFX_PutSettings(SavedSettings::kName, number, record.data(), size,
                         SavedSettings::kOwner) == 0) {
        result = RegistryResult::kAccessDenied;
    }
    return result;
}

// False if there is nothing to copy, or something is left. Also takes those beyond the number that
// a command can have now.
bool CopyAllFromOldOwner(u16 commandID) {
    const auto oldKey = platform::RegistryKey::Open(
        std::string{kSettingsBaseKey} + '\\' + kOldOwner, platform::KeyAccess::kRead);
    if (!oldKey) {
        return false;
    }
    bool allCopied = true;
    for (i32 number = 0; commandID + number <= INT16_MAX; ++number) {
        const RegistryResult result = CopyFromOldOwner(
            oldKey, SavedSettings::StoredNumber(commandID, static_cast<i16>(number)));
        if (result == RegistryResult::kNotFound && number > 0) {
            break;
        }
        allCopied = allCopied &&
                    (result == RegistryResult::kSuccess || result == RegistryResult::kNotFound);
    }
    return allCopied;
}

// The stored bytes, compatible or not.
u32 ReadHeader(u16 commandID, i16 number, SavedSettingHeader& header) {
    return ZKFX_GetSettings(SavedSettings::kName, SavedSettings::StoredNumber(commandID, number),
                            &header, sizeof(header), SavedSettings::kOwner);
}

// Nothing if no compatible record is stored there.
std::optional<u16> IdentifierAt(u16 commandID, i16 number) {
    SavedSettingHeader header{};
    ReadHeader(commandID, number, header);
    return header.headerSize == sizeof(header) ? std::optional{header.identifier} : std::nullopt;
}

void Give(u16* output, u16 value) {
    if (output != nullptr) {
        *output = value;
    }
}

}  // namespace

void SavedSettings::ReportMissing(u16 commandID, i16 number, const char* function,
                                  const char* detail) {
    SavedSettingHeader header{};
    const bool stored = number != 0 && ReadHeader(commandID, number, header) != 0;
    if (!stored || header.headerSize == sizeof(header)) {
        PostError(FinPIAppError{function, detail});
        ReportPendingError();
    }
}

i16 SavedSettings::CurrentNumber(u16 commandID, i16 number, u16 identifier) {
    if (number == 0) {
        return 0;
    }
    const std::optional<u16> there = IdentifierAt(commandID, number);
    if (there == identifier) {
        return number;
    }
    for (i16 other = 1; other <= kMaxPerCommand; ++other) {
        if (IdentifierAt(commandID, other) == identifier) {
            return other;
        }
    }
    return there ? i16{0} : number;
}

void SavedSettings::MoveFromOldOwner(u16 commandID) {
    if (!CopyAllFromOldOwner(commandID)) {
        return;
    }
    if (auto base = platform::RegistryKey::Open(kSettingsBaseKey, platform::KeyAccess::kAll)) {
        base.DeleteSubkey(kOldOwner);
    }
}

i16 ReadSavedSetting(u16 commandID, i16 number, char16* name, u16* commandItem, u16* skipDialog,
                     u16* identifier, u16* useSubmenu) {
    if (!g_movedFromOldOwner) {
        g_movedFromOldOwner = true;
        SavedSettings::MoveFromOldOwner(commandID);
    }
    if (number < 1 || number > SavedSettings::kMaxPerCommand) {
        return 0;
    }
    SavedSettingPtr setting{0};
    if (setting.GetFromFile(SavedSettings::StoredNumber(commandID, number)) == 0) {
        return 0;
    }
    if (name != nullptr) {
        const std::u16string text = setting.Name().substr(0, kStoredNameUnits);
        std::fill(std::ranges::copy(text, name).out, name + kStoredNameUnits, u'\0');
    }
    const SavedSettingHeader& header = setting.Header();
    Give(commandItem, header.commandItem);
    Give(skipDialog, header.skipDialog);
    Give(identifier, header.identifier);
    Give(useSubmenu, static_cast<u16>(header.flags & SavedSettingFlag::kUseSubmenu));
    return 1;
}

u32 ReadSavedSettingRecord(u16 commandID, i16 number, void* settings, u32 size) {
    SavedSettingPtr setting{size};
    const i32 found = setting.GetFromFile(SavedSettings::StoredNumber(commandID, number));
    const auto headerSize = static_cast<i32>(sizeof(SavedSettingHeader));
    if (found <= headerSize) {
        return 0;
    }
    std::copy_n(static_cast<const u8*>(setting.Settings()), size, static_cast<u8*>(settings));
    return std::min(static_cast<u32>(found - headerSize), size);
}
