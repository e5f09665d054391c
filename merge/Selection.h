#pragma once

#include <algorithm>

#include "shell/host/callbacks.h"
#include "shell/host/host_frames.h"

// The selected slots and time, with the document they belong to.
struct Selection : EREGION {
    u16 document;

    u16 DocumentID() const { return document; }
    // Both ends of the time count as inside. position: in the measure's nominal duration.
    bool ContainsTime(i16 measure, i32 position) const {
        return (measure > startMeasure || (measure == startMeasure && position >= startPosition)) &&
               (measure < endMeasure || (measure == endMeasure && position <= endPosition));
    }
    // Rests on FX_InstToSlot.
    bool ContainsStaff(u16 staff) const {
        const i16 slot = Host::InstToSlot(staff, startStaffList);
        return slot > 0 && slot >= std::min(startSlot, endSlot) &&
               slot <= std::max(startSlot, endSlot);
    }
};
