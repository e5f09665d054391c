// The staff system that holds a measure.
#pragma once

#include "Class Files/score/records/EnigmaRecords.h"

class FinPIStaffSystem final : public StaffSystemRecord {
public:
    static constexpr u16 kNoSystem = 0xFFFF;

    // Finds and loads the system that holds the measure, beginning the search at a system, from
    // 1; posts a load failure, as for a measure beyond the last system.
    FinPIStaffSystem(i16 measure, u16 startSystem);

    // The number of the system that holds the measure; of the first one that does not load, when
    // none does. A system without measures is laid out first (FX_UpdateLayout).
    static u16 FindSystemForMeasure(i16 measure, u16 startSystem);

    const FinPIPartView& PartView() const noexcept { return m_partView; }

private:
    FinPIPartView m_partView;  // of the current part, not loaded
};
