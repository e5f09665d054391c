// A measure's time signature.
#pragma once

#include <vector>

#include "shell/host/host_types.h"

struct FinPITimeSig {
    // Bits of displayFlags.
    static constexpr u16 kComposite = 0x80;
    static constexpr u16 kCompositeDenominator = 0x40;
    static constexpr u16 kAbbreviated = 0x02;  // shown as common or cut time

    // Of a composite signature these are item numbers of its group lists instead.
    i16 beats = 0;
    i16 beatDuration = 0;  // duration units
    u16 displayFlags = 0;
    // The beat groups of a composite signature, in order, in duration units; else empty.
    std::vector<i32> groupDurations;

    bool operator==(const FinPITimeSig&) const = default;
};
