// The part that a staff is printed in.
#pragma once

#include "Class Files/score/records/EnigmaRecords.h"

class FinPIStaffView final : public FinPIPartView {
public:
    // Loads the first part whose staff list holds the staff (FX_NextEData, FX_InstToSlot);
    // addresses nothing when there is none.
    explicit FinPIStaffView(u16 staff);
};
