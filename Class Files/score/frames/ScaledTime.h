// Times in a staff whose measure has a duration of its own.
#pragma once

#include "shell/host/host_types.h"

// Converts a time in the staff's duration to the measure's nominal duration, rounded; unchanged if
// the staff's measure has no duration. All in duration units.
inline i32 ScaleToNominal(i32 time, i32 nominalDuration, i32 staffDuration) noexcept {
    if (staffDuration == 0) {
        return time;
    }
    return static_cast<i32>((i64{nominalDuration} * time + staffDuration / 2) / staffDuration);
}
