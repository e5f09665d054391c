// A run of destination rests that source entries may fill; Plyweld::FindRestRun finds the next.
#pragma once

#include "shell/host/host_types.h"

// Consecutive rests of voice 1 and their total time, including missing time after them.
struct RestRun {
    i16 start = -1;    // index of the first; the entry count for missing time alone
    i16 count = 0;     // rests
    i32 duration = 0;  // duration units of the staff
};
