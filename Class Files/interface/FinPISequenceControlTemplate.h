// A list control that knows a value for each of its items. Positions of items count from 1;
// the value of the control is the position of the selected item, 0 = none.
#pragma once

#include <vector>

#include "Class Files/interface/FinPIGenericControl.h"

// The list operations change the list alone; the item values follow when a derived control
// fills the list.
template <typename Value>
class FinPISequenceControlTemplate : public FinPIGenericControl {
public:
    using FinPIGenericControl::FinPIGenericControl;

    void Attach(WindowHandle window, u32 value, u16 enabled) override {
        AddFixedItems(window);
        FinPIGenericControl::Attach(window, value, enabled);
    }
    // Selects the item at this position.
    void SetValue(u32 value) override {
        m_lastPosition = value;
        WriteControl(value);
    }

    // The order of the virtual operations is the interface; those named Unused keep its places.
    virtual Value GetItemValue(u32 position) {
        return m_itemValues[static_cast<std::size_t>(position) - 1];
    }
    // Adds the items that come from the string table.
    virtual void AddFixedItems(WindowHandle window) = 0;
    virtual i16 IsSelectionEvent(u64 notificationCode) = 0;
    virtual void AppendItem(const char16* text) = 0;
    // clear: empties the buffer first, so that it is empty if the item does not exist.
    virtual char16* GetItemText(i16 position, char16* buffer, i16 clear) = 0;
    virtual void ReplaceItemText(const char16* text, i16 position) = 0;
    // The item that follows is selected then, or the new last one.
    virtual void RemoveItem(i16 position) = 0;
    virtual void ClearItems() = 0;
    virtual i16 GetItemCount() = 0;
    virtual void UnusedListNotice() {}
    virtual char16* UnusedItemText(i16 /*position*/, char16* buffer, i16 clear) {
        if (clear != 0) {
            *buffer = u'\0';
        }
        return buffer;
    }

protected:
    i16 m_fixedItems = 0;
    i16 m_firstFixedString = 0;
    u16 m_hasSkipValue = 0;
    Value m_skipValue = 0;  // an item of this value never counts as a new selection
    std::vector<Value> m_itemValues;
    u32 m_lastPosition = 0;
    u16 m_reselectionIsNoChange = 0;
};
