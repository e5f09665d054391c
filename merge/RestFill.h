// Runs of destination rests, and the source entries that fill them exactly.
#pragma once

#include "Class Files/score/frames/FinPITGFPtr.h"

// Consecutive rests of voice 1, and the time they take with what is missing behind them.
struct RestRun {
    i16 start = -1;    // index of the first; the entry count for missing time alone
    i16 count = 0;     // of rests
    i32 duration = 0;  // duration units of the staff
};

// Consecutive entries of a source frame, those of voice 2 between them included.
struct SourceSpan {
    i16 first = -1;
    i16 count = 0;
};

// 1 when entries of the source start exactly at the start time and end exactly the duration
// later; both in duration units of the staff. Grace entries go with the entry they precede.
i16 FindSourceSpan(const FinPITGFPtr& source, i32 startTime, i32 duration, SourceSpan& span);
