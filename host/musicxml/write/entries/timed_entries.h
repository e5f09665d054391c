// The entries of a frame with their exact times.
#pragma once

#include <vector>

#include "host/musicxml/imported_score.h"
#include "host/musicxml/time_ratio.h"

namespace standin {

struct TimedEntry {
    const EXENTRY* entry = nullptr;
    Rational start{};
    Rational length{};       // 0 for a grace entry
    bool asWritten = false;  // its time is that of its form
    TimeRatio ratio{};       // of the tuplets around it; set where asWritten is false
};

// The voice-1 or the voice-2 entries of a frame, in order. Times come from the forms if these agree
// with the host's rounded times, else from the tuplets if these give whole divisions of a quarter
// note, else from the nearest division.
std::vector<TimedEntry> TimedEntriesOf(const ImportedScore& score, const Frame& frame, bool voice2,
                                       Rational divisions);

}  // namespace standin
