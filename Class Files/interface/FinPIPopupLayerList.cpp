#include "Class Files/interface/FinPIPopupLayerList.h"

#include <algorithm>
#include <string>

#include "Class Files/interface/WindowMessages.h"
#include "Class Files/score/document/FinPILayer.h"
#include "platform/resources.h"
#include "shell/host/callbacks.h"

namespace {

constexpr u32 kAllLayersString = 20075;

// The size of a buffer for an item's text, including its terminator.
constexpr std::size_t kItemTextUnits = 1024;

}  // namespace

u32 FinPIPopupLayerList::GetValue() {
    return GetItemCount() == 0 ? 0 : ReadControl();
}

i16 FinPIPopupLayerList::GetItemValue(u32 position) {
    const std::size_t count =
        std::min(m_itemValues.size(), static_cast<std::size_t>(GetItemCount()));
    return position - 1 < count ? FinPIPopupListInt::GetItemValue(position) : i16{0};
}

void FinPIPopupLayerList::AddFixedItems(WindowHandle window) {
    platform::ComboBox list{window, m_id};
    for (i16 i = 0; i < m_fixedItems; ++i) {
        const auto text = platform::ResourceString(static_cast<u32>(m_firstFixedString + i));
        list.Add(std::u16string{text.substr(0, kItemTextUnits - 1)});
    }
}

i16 FinPIPopupLayerList::IsSelectionEvent(u64 notificationCode) {
    return notificationCode == kSelectionEndOk ? 1 : 0;
}

void FinPIPopupLayerList::AppendItem(const char16* text) {
    List().Insert(GetItemCount(), text);
}

char16* FinPIPopupLayerList::GetItemText(i16 position, char16* buffer, i16 clear) {
    if (clear != 0) {
        *buffer = u'\0';
    }
    if (position >= 1 && position <= GetItemCount()) {
        const std::u16string text = List().ItemText(position - 1);
        *std::ranges::copy(text, buffer).out = u'\0';
    }
    return buffer;
}

void FinPIPopupLayerList::ReplaceItemText(const char16* text, i16 position) {
    List().Delete(position - 1);
    List().Insert(position - 1, text);
}

void FinPIPopupLayerList::RemoveItem(i16 position) {
    List().Delete(position - 1);
    const i16 count = GetItemCount();
    if (count == 0) {
        List().Clear();
    } else if (position >= 1) {
        Host::SetDlgCntlVal(m_window, m_id, static_cast<i16>(0),
                            static_cast<u32>(std::min(position, count)));
    }
}

void FinPIPopupLayerList::ClearItems() {
    List().Clear();
}

i16 FinPIPopupLayerList::GetItemCount() {
    return static_cast<i16>(List().ItemCount());
}

u32 FinPIPopupLayerList::AddLayerItem(const char16* text, i16 value) {
    AppendItem(text);
    m_itemValues.push_back(value);
    return static_cast<u32>(GetItemCount());
}

void FinPIPopupLayerList::FillLayers(u16 selectedLayer, bool includeAll) {
    m_itemValues.clear();
    ClearItems();
    u32 selected = 0;
    if (includeAll) {
        const std::u16string text{platform::ResourceString(kAllLayersString)};
        const u32 position = AddLayerItem(text.c_str(), kAllLayersItem);
        if (selectedLayer == kAllLayers) {
            selected = position;
        }
    }
    const i16 layers = Host::GetMaxLayers();
    for (i16 layer = 0; layer < layers; ++layer) {
        const std::u16string name = FinPILayer::Name(static_cast<u16>(layer));
        const u32 position = AddLayerItem(name.c_str(), layer);
        if (selectedLayer == layer) {
            selected = position;
        }
    }
    if (selected != 0) {
        SetValue(selected);
    }
}

bool FinPIPopupLayerList::SelectionChanged(u64 notificationCode) {
    if (IsSelectionEvent(notificationCode) == 0) {
        return false;
    }
    const u32 position = GetValue();
    if (position == m_lastPosition) {
        return m_reselectionIsNoChange == 0;
    }
    if (m_hasSkipValue != 0 && GetItemValue(position) == m_skipValue) {
        return false;
    }
    m_lastPosition = position;
    return true;
}
