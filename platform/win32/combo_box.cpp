#include "platform/combo_box.h"

#include <windows.h>

#include <algorithm>

namespace platform {

namespace {

LRESULT Send(Window dialog, std::uint16_t control, UINT message, int position = 0,
             LPARAM value = 0) {
    return SendDlgItemMessageW(dialog, control, message, static_cast<WPARAM>(position), value);
}

LPARAM Address(const void* memory) noexcept {
    return reinterpret_cast<LPARAM>(memory);
}

}  // namespace

int ComboBox::ItemCount() const {
    return std::max(0, static_cast<int>(Send(m_dialog, m_control, CB_GETCOUNT)));
}

void ComboBox::Add(const std::u16string& text) {
    Send(m_dialog, m_control, CB_ADDSTRING, 0, Address(text.c_str()));
}

void ComboBox::Insert(int position, const std::u16string& text) {
    Send(m_dialog, m_control, CB_INSERTSTRING, position, Address(text.c_str()));
}

void ComboBox::Delete(int position) {
    Send(m_dialog, m_control, CB_DELETESTRING, position);
}

void ComboBox::Clear() {
    Send(m_dialog, m_control, CB_RESETCONTENT);
}

std::u16string ComboBox::ItemText(int position) const {
    const LRESULT length = Send(m_dialog, m_control, CB_GETLBTEXTLEN, position);
    if (length <= 0) {
        return {};
    }
    std::u16string text(static_cast<std::size_t>(length) + 1, u'\0');
    const LRESULT copied = Send(m_dialog, m_control, CB_GETLBTEXT, position, Address(text.data()));
    text.resize(static_cast<std::size_t>(std::max<LRESULT>(copied, 0)));
    return text;
}

std::uint32_t ComboBox::ItemData(int position) const {
    return position < 0 || position >= ItemCount()
               ? 0
               : static_cast<std::uint32_t>(Send(m_dialog, m_control, CB_GETITEMDATA, position));
}

void ComboBox::SetItemData(int position, std::uint32_t data) {
    Send(m_dialog, m_control, CB_SETITEMDATA, position, static_cast<LPARAM>(data));
}

}  // namespace platform
