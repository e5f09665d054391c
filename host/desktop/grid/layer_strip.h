// The contents of a layer in one staff and measure, as drawn and named by the grid.
#pragma once

#include <string>
#include <vector>

#include "host/score/frame.h"

namespace standin::desktop {

enum class StripKind { kNotes, kRest, kHidden, kGrace };

// One entry; begin and end are parts of the measure, 0 to 1.
struct StripItem {
    double begin = 0;
    double end = 0;
    StripKind kind = StripKind::kNotes;
    int notes = 0;
};

// The measure's duration is the staff's, in duration units.
std::vector<StripItem> StripOf(const Frame& frame, i32 measureDuration);

// Each entry as its note value (w h q e s t x, or duration units), dots, and what it is: the
// number of its notes, r for a rest, - for a hidden entry, in front g for a grace note and 2 for
// the second voice. A half note chord of two and a hidden eighth rest: "h2 er-".
std::string StripText(const Frame& frame);

}  // namespace standin::desktop
