// A group of radio buttons with consecutive ids, of which one at most is checked. Its value is
// the position of the checked button, from 0.
#pragma once

#include "Class Files/interface/FinPIGenericControl.h"

class FinPIRadioButton : public FinPIGenericControl {
public:
    static constexpr u32 kNothingChecked = 0xFFFFFFFF;

    FinPIRadioButton(u16 firstId, u16 lastId) noexcept
        : FinPIGenericControl{firstId}, m_lastId{lastId} {}

    u32 GetValue() override;
    i16 Enable(u16 enabled) override;
    // Positions outside the group mean its first and last button.
    void SetValue(u32 value) override;

    // Handles a click on a button of the group.
    void CheckButton(u16 checked);

private:
    u16 m_lastId;
};
