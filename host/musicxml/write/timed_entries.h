// The entries of a frame with their exact times.
#pragma once

#include <vector>

#include "host/musicxml/imported_score.h"

namespace standin {

struct TimedEntry {
    const EXENTRY* entry = nullptr;
    Rational start{};
    Rational length{};       // 0 for a grace entry
    bool asWritten = false;  // it takes the time its form says
};

// The voice-1 or the voice-2 entries of a frame, in order. Times follow the forms where these
// agree with the host's rounded ones, else the tuplets where these give whole divisions of a
// quarter note, else the nearest division.
std::vector<TimedEntry> TimedEntriesOf(const ImportedScore& score, const Frame& frame, bool voice2,
                                       Rational divisions);

}  // namespace standin
