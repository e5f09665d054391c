#include "Class Files/interface/FinPICheckBox.h"

#include "shell/host/callbacks.h"

namespace {

constexpr i16 kCheckBoxKind = 1;

}  // namespace

i16 FinPICheckBox::Enable(u16 enabled) {
    if (m_clearWhenDisabled != 0) {
        WriteControl(enabled != 0 ? m_storedValue : 0);
    }
    return FinPIGenericControl::Enable(enabled);
}

void FinPICheckBox::SetValue(u32 value) {
    m_storedValue = static_cast<u16>(value);
    WriteControl(value);
}

u32 FinPICheckBox::ReadControl() {
    return Host::GetDlgItemVal(m_window, m_id, kCheckBoxKind);
}

void FinPICheckBox::WriteControl(u32 value) {
    Host::SetDlgItemVal(m_window, m_id, kCheckBoxKind, value);
}
