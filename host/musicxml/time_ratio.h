// Ratios of tuplets and rounded lengths.
#pragma once

#include "shell/host/host_types.h"

namespace standin {

struct TimeRatio {
    int actual = 1;
    int normal = 1;
};

// The simplest ratio with which the notated length takes the actual one, both in duration
// units; 1:1 when they are equal or no ratio up to 32 fits.
TimeRatio RatioOf(i64 notated, i64 actual);

// Whether the notated length takes the actual one in this ratio.
bool Fits(TimeRatio ratio, i64 notated, i64 actual);

}  // namespace standin
