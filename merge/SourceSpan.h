// The source entries that take exactly the time of a run of rests.
#pragma once

#include "Class Files/score/frames/FinPITGFPtr.h"

// Consecutive entries of a source frame, those of voice 2 between them included.
struct SourceSpan {
    i16 first = -1;
    i16 count = 0;
};

// 1 when entries of the source start exactly at the start time and end exactly the duration
// later; both in duration units of the staff. Grace entries go with the entry they precede.
i16 FindSourceSpan(const FinPITGFPtr& source, i32 startTime, i32 duration, SourceSpan& span);
