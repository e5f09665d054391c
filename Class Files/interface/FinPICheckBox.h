// A check box that does not change by itself: the dialog toggles it.
#pragma once

#include "Class Files/interface/FinPIGenericControl.h"

class FinPICheckBox : public FinPIGenericControl {
public:
    // clearWhenDisabled: a disabled box shows unchecked, and gets its value back when enabled.
    explicit FinPICheckBox(u16 id, bool clearWhenDisabled = false) noexcept
        : FinPIGenericControl{id}, m_clearWhenDisabled{clearWhenDisabled ? u16{1} : u16{0}} {}

    u32 GetStoredValue() override { return m_storedValue; }
    i16 Enable(u16 enabled) override;
    void SetValue(u32 value) override;
    u32 ReadControl() override;
    void WriteControl(u32 value) override;

    // 1 becomes 0, and 0 becomes 1.
    void Toggle() { SetValue(GetValue() == 0 ? 1 : 0); }

private:
    u16 m_clearWhenDisabled;
    u16 m_storedValue = 0;
};
