// A drop-down list of the host's layers, each with its layer number from 0 as its value.
#pragma once

#include "Class Files/interface/FinPIPopupListInt.h"
#include "platform/combo_box.h"

class FinPIPopupLayerList : public FinPIPopupListInt {
public:
    // The item value for all layers; settings use 65535.
    static constexpr i16 kAllLayersItem = static_cast<i16>(kAllLayers);

    using FinPIPopupListInt::FinPIPopupListInt;

    u32 GetValue() override;
    // 0 for a position outside the list.
    i16 GetItemValue(u32 position) override;
    void AddFixedItems(WindowHandle window) override;
    i16 IsSelectionEvent(u64 notificationCode) override;
    void AppendItem(const char16* text) override;
    char16* GetItemText(i16 position, char16* buffer, i16 clear) override;
    void ReplaceItemText(const char16* text, i16 position) override;
    void RemoveItem(i16 position) override;
    void ClearItems() override;
    i16 GetItemCount() override;

    // Lists the layers, after an item for all of them when asked. 65535 selects that one.
    void FillLayers(u16 selectedLayer, bool includeAll);
    // Whether the event changed the selection.
    bool SelectionChanged(u64 notificationCode);

private:
    platform::ComboBox List() const noexcept { return {m_window, m_id}; }
    // The new item's position.
    u32 AddLayerItem(const char16* text, i16 value);
};
