#include "Class Files/interface/FinPIRadioButton.h"

#include <algorithm>

#include "shell/host/callbacks.h"

namespace {

constexpr i16 kRadioButtonKind = 2;

}  // namespace

u32 FinPIRadioButton::GetValue() {
    for (u16 button = m_id; button <= m_lastId; ++button) {
        if (Host::GetDlgItemVal(m_window, button, kRadioButtonKind) != 0) {
            return static_cast<u32>(button - m_id);
        }
    }
    return kNothingChecked;
}

i16 FinPIRadioButton::Enable(u16 enabled) {
    i16 result{};
    for (u16 button = m_id; button <= m_lastId; ++button) {
        result = Host::EnableDlgItem(m_window, button, static_cast<i16>(enabled));
    }
    return result;
}

void FinPIRadioButton::SetValue(u32 value) {
    const i32 position = std::clamp(static_cast<i32>(value), 0, m_lastId - m_id);
    CheckButton(static_cast<u16>(m_id + position));
}

void FinPIRadioButton::CheckButton(u16 checked) {
    if (Host::GetDlgItemVal(m_window, checked, kRadioButtonKind) != 0) {
        return;
    }
    for (u16 button = m_id; button <= m_lastId; ++button) {
        Host::SetDlgItemVal(m_window, button, kRadioButtonKind, button == checked ? 1U : 0U);
    }
}
