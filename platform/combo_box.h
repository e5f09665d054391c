// The list of a dialog's drop-down list control. Positions count from 0.
#pragma once

#include <cstdint>
#include <string>

#include "platform/window.h"

namespace platform {

// Names the control, owns nothing. A control that does not exist holds no items.
class ComboBox {
public:
    ComboBox(Window dialog, std::uint16_t control) noexcept
        : m_dialog{dialog}, m_control{control} {}

    int ItemCount() const;
    // Sorted in where the control's style sorts, else at the end.
    void Add(const std::u16string& text);
    void Insert(int position, const std::u16string& text);
    void Delete(int position);
    void Clear();

    std::u16string ItemText(int position) const;
    // 32 bits that the program stores with an item; 0 if the item does not exist.
    std::uint32_t ItemData(int position) const;
    void SetItemData(int position, std::uint32_t data);

private:
    Window m_dialog;
    std::uint16_t m_control;
};

}  // namespace platform
