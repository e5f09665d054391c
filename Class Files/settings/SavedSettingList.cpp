#include "Class Files/settings/SavedSettingList.h"

#include <algorithm>

#include "shell/host/callbacks.h"

SavedSettingList::SavedSettingList(WindowHandle window, u16 control) noexcept
    : m_window{window}, m_control{control}, m_list{window, control} {}

i16 SavedSettingList::Count() const {
    return static_cast<i16>(m_list.ItemCount());
}

i16 SavedSettingList::Selected() const {
    return Count() == 0
               ? i16{0}
               : static_cast<i16>(Host::GetDlgCntlVal(m_window, m_control, i16{0}, i16{0}));
}

void SavedSettingList::Select(i16 position) {
    Host::SetDlgCntlVal(m_window, m_control, i16{0}, static_cast<u32>(position));
}

std::u16string SavedSettingList::Name(i16 position) const {
    return m_list.ItemText(position - 1);
}

SavedSettingItem SavedSettingList::Item(i16 position) const {
    return SavedSettingItem{m_list.ItemData(position - 1)};
}

void SavedSettingList::SetItem(i16 position, SavedSettingItem item) {
    m_list.SetItemData(position - 1, item.Data());
}

int SavedSettingList::FindNamePosition(std::u16string& name, bool makeUnique) const {
    const std::u16string given = name;
    int counter = 0;
    const int count = m_list.ItemCount();
    for (int position = 0; position < count; ++position) {
        const int order = name.compare(m_list.ItemText(position));
        if (order == 0) {
            if (!makeUnique) {
                return -1;
            }
            const std::string number = std::to_string(++counter);
            name = given + u' ' + std::u16string{number.begin(), number.end()};
        } else if (order < 0) {
            return position;
        }
    }
    return count;
}

i16 SavedSettingList::InsertSorted(std::u16string name, SavedSettingItem item, bool makeUnique) {
    const int place = FindNamePosition(name, makeUnique);
    if (place < 0) {
        return 0;
    }
    m_list.Insert(place, name);
    m_list.SetItemData(place, item.Data());
    return static_cast<i16>(place + 1);
}

void SavedSettingList::Remove(i16 position) {
    m_list.Delete(position - 1);
}

void SavedSettingList::RemoveSelected() {
    const i16 position = Selected();
    if (position < 1) {
        return;
    }
    Remove(position);
    const i16 count = Count();
    if (count == 0) {
        Clear();
    } else {
        Select(std::min(position, count));
    }
}

void SavedSettingList::Clear() {
    m_list.Clear();
}
