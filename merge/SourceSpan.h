// The source entries that fill exactly the time of a run of rests.
#pragma once

#include "Class Files/score/frames/FinPITGFPtr.h"

// Consecutive entries of a source frame, including those of voice 2 between them.
struct SourceSpan {
    i16 first = -1;
    i16 count = 0;
};

// 1 when entries of the source start exactly at startTime and end exactly after the duration, both
// in the staff's duration units. Grace entries belong to the entry they precede.
i16 FindSourceSpan(const FinPITGFPtr& source, i32 startTime, i32 duration, SourceSpan& span);
