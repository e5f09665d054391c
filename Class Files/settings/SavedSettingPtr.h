// A named copy of a command's settings record, as the settings store keeps it.
#pragma once

#include <string>
#include <vector>

#include "shell/host/host_types.h"

// The part that every stored record begins with; the settings record follows.
struct SavedSettingHeader {
    u16 totalSize;    // bytes, the settings included
    u16 headerSize;   // bytes; a record with another size is not compatible
    u32 hostVersion;  // when the record was written
    char name[128];   // UTF-8
    u16 commandItem;  // the menu item of the command whose settings they are
    u16 skipDialog;   // 1: the menu item runs the command without its dialog
    u16 identifier;   // unique among the command's saved settings, from 1
    u16 flags;        // SavedSettingFlag; read only from the first saved setting
    u8 reserved[16];
};
static_assert(sizeof(SavedSettingHeader) == 160);

namespace SavedSettingFlag {
inline constexpr u16 kUseSubmenu = 0x1;
}  // namespace SavedSettingFlag

// Owns one record. Numbers are those of the store: the command id plus the number of the saved
// setting.
class SavedSettingPtr {
public:
    // A zeroed record with room for these settings; its sizes and host version are set.
    explicit SavedSettingPtr(u32 settingsSize);

    // Bytes that the store holds under the number; 0 = none, or not compatible, which is
    // reported at once.
    i32 GetFromFile(i16 number);
    // 0 = not written; posts an error.
    i16 PutToFile(i16 number);

    SavedSettingHeader& Header() noexcept;
    const SavedSettingHeader& Header() const noexcept;
    void* Settings() noexcept { return m_record.data() + sizeof(SavedSettingHeader); }

    std::u16string Name() const;
    // Cut at 127 bytes, between characters.
    void SetName(const std::u16string& name);
    // Updates the sizes and the host version.
    void StampHeader() noexcept;

    bool written = false;  // by the Save Settings dialog

private:
    std::vector<u8> m_record;
};
