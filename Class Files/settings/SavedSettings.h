// The saved settings of a command: numbered from 1 without gaps, each an item of the host's
// plug-in menu from the next start of the host on.
#pragma once

#include "shell/host/host_types.h"

namespace SavedSettings {

// Where the settings store keeps them: under one owner for all commands. The command id is added to
// the number.
inline constexpr char kOwner[] = "Save Settings";
inline constexpr char kName[] = "ZKSC";

inline constexpr i16 kMaxPerCommand = 99;

// The number in the store.
constexpr i16 StoredNumber(u16 commandID, i16 number) noexcept {
    return static_cast<i16>(commandID + number);
}

// Reports that a saved setting is missing, unless its record is incompatible, which was reported
// when it was read.
void ReportMissing(u16 commandID, i16 number, const char* function, const char* detail);

// The present number of the saved setting that had this number and has this identifier; adding or
// deleting others moves it. If none has the identifier: the number itself, or 0 if another setting
// has it now.
i16 CurrentNumber(u16 commandID, i16 number, u16 identifier);

// Moves what older versions kept under another owner; that owner's key goes, unless a
// setting could not be moved.
void MoveFromOldOwner(u16 commandID);

}  // namespace SavedSettings

// Set once the user has changed saved settings: the host's menu is then out of date until the host
// restarts.
extern u16 g_savedSettingsChanged;

// 1 = saved setting number of the command exists. name: 128 UTF-16 units, zero-filled; it and
// each other output may be null.
i16 ReadSavedSetting(u16 commandID, i16 number, char16* name, u16* commandItem, u16* skipDialog,
                     u16* identifier, u16* useSubmenu);

// The settings part of a saved setting: the bytes read, at most size; 0 = there is none.
u32 ReadSavedSettingRecord(u16 commandID, i16 number, void* settings, u32 size);
