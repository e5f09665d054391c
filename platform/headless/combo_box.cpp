#include "platform/combo_box.h"

#include "platform/headless/window_model.h"

namespace platform {

namespace {

using Items = std::vector<HWND__::ListItem>;

// Null if the control does not exist.
Items* FindItems(Window dialog, std::uint16_t control) {
    if (dialog == nullptr) {
        return nullptr;
    }
    const auto found = dialog->controls.find(control);
    return found == dialog->controls.end() ? nullptr : &found->second.items;
}

HWND__::ListItem* FindItem(Window dialog, std::uint16_t control, int position) {
    Items* items = FindItems(dialog, control);
    if (items == nullptr || position < 0 || position >= static_cast<int>(items->size())) {
        return nullptr;
    }
    return &(*items)[static_cast<std::size_t>(position)];
}

}  // namespace

int ComboBox::ItemCount() const {
    const Items* items = FindItems(m_dialog, m_control);
    return items == nullptr ? 0 : static_cast<int>(items->size());
}

void ComboBox::Add(const std::u16string& text) {
    Insert(ItemCount(), text);
}

void ComboBox::Insert(int position, const std::u16string& text) {
    Items* items = FindItems(m_dialog, m_control);
    if (items != nullptr && position >= 0 && position <= static_cast<int>(items->size())) {
        items->insert(items->begin() + position, {text, 0});
    }
}

void ComboBox::Delete(int position) {
    if (FindItem(m_dialog, m_control, position) != nullptr) {
        Items* items = FindItems(m_dialog, m_control);
        items->erase(items->begin() + position);
    }
}

void ComboBox::Clear() {
    if (Items* items = FindItems(m_dialog, m_control)) {
        items->clear();
    }
}

std::u16string ComboBox::ItemText(int position) const {
    const HWND__::ListItem* item = FindItem(m_dialog, m_control, position);
    return item == nullptr ? std::u16string{} : item->text;
}

std::uint32_t ComboBox::ItemData(int position) const {
    const HWND__::ListItem* item = FindItem(m_dialog, m_control, position);
    return item == nullptr ? 0 : item->data;
}

void ComboBox::SetItemData(int position, std::uint32_t data) {
    if (HWND__::ListItem* item = FindItem(m_dialog, m_control, position)) {
        item->data = data;
    }
}

}  // namespace platform
