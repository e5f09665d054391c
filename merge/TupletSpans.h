// Where the tuplets of a frame begin and end. Rests may be replaced only where every tuplet stays
// whole.
#pragma once

#include <span>
#include <vector>

#include "Class Files/score/frames/FinPITGFPtr.h"
#include "shell/host/host_records.h"

// A tuplet of voice 1. Times: duration units from the barline, in the staff's duration.
struct TupletSpan {
    i32 start;
    i32 end;
    i16 symbolicCount;
    i16 symbolicUnitDuration;
    i16 referenceCount;
    i16 referenceUnitDuration;
};

// Ordered by start, outer tuplets before inner ones. Calls FX_NextEData for entries that have
// tuplets.
std::vector<TupletSpan> TupletsOf(const FinPITGFPtr& frame);

// True when at this time no tuplet of either frame is running, or the same ones in both.
bool SameTupletsRunAt(i32 time, std::span<const TupletSpan> a, std::span<const TupletSpan> b);
