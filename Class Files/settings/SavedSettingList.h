// The drop-down list of saved settings in the Save Settings dialog, sorted by name. Positions
// count from 1, as in the host's dialog operations; 0 = none.
#pragma once

#include <string>

#include "platform/combo_box.h"
#include "shell/host/host_types.h"

// The list's value of an item. Low half: the number in the store, 0 for a setting added since the
// dialog opened. High half: its skip-dialog flag.
class SavedSettingItem {
public:
    explicit SavedSettingItem(u32 data) noexcept : m_data{data} {}
    SavedSettingItem(u16 storedNumber, bool skipDialog) noexcept
        : m_data{storedNumber | (skipDialog ? 0x10000U : 0U)} {}

    u16 StoredNumber() const noexcept { return static_cast<u16>(m_data); }
    bool SkipsDialog() const noexcept { return (m_data >> 16U) != 0; }
    u32 Data() const noexcept { return m_data; }

private:
    u32 m_data;
};

class SavedSettingList {
public:
    // window: the dialog's; control: the list's id.
    SavedSettingList(WindowHandle window, u16 control) noexcept;

    i16 Count() const;
    i16 Selected() const;
    void Select(i16 position);
    std::u16string Name(i16 position) const;
    SavedSettingItem Item(i16 position) const;
    void SetItem(i16 position, SavedSettingItem item);

    // The place of a name among the items, from 0; -1 when an item has this name and it must not be
    // changed. makeUnique: a name in use gets a space and a counter appended.
    int FindNamePosition(std::u16string& name, bool makeUnique) const;
    // The new item's position; 0 when the name is in use and must not be changed.
    i16 InsertSorted(std::u16string name, SavedSettingItem item, bool makeUnique);
    void Remove(i16 position);
    // Removes the selected item and selects the next one, or the new last one.
    void RemoveSelected();
    void Clear();

private:
    WindowHandle m_window;
    u16 m_control;
    platform::ComboBox m_list;
};
