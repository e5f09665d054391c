// The working state of one frame merge: a source and a destination layer of one staff in one
// measure, and what moved between them.
#pragma once

#include <optional>
#include <set>
#include <vector>

#include "Class Files/score/FinPIRegion.h"
#include "Class Files/score/FinPITGFPtr.h"
#include "merge/TupletSpans.h"

struct FramePair {
    FinPIRegion region;  // the selection
    FinPITGFPtr source;
    FinPITGFPtr destination;
    bool hideRests = false;      // hide the rests that are left in the source
    bool staffSelected = false;  // the staff lies between the region's slots
    std::set<u32> moved{};       // numbers of the destination entries that received music
    bool preFilled = false;      // the destination was given rests that mirror the source
    std::optional<std::vector<TupletSpan>> sourceTuplets{};  // read when first needed
};
