// When the entries of a frame start and how long they take.
#pragma once

#include <cstddef>
#include <vector>

#include "host/score/records/record_store.h"
#include "host/score/time/time_position.h"
#include "shell/host/host_frames.h"

namespace standin {

enum class TupletRounding {
    kBothEnds,
    kWholeUnits,  // whole units; the last entry of a tuplet takes the remainder
};

// Sets elapsed time and actual duration of every entry, in duration units, from the notated
// durations and the tuplets on record. A grace entry takes no time and has its main note's
// position. Voice 2 starts with the entry that launches it; voice 1 goes on where that entry ends.
//
// A tuplet begins at the entry it is recorded with and runs over entries of that voice until its
// symbolic span is full; further tuplets of the same entry, and ones that begin inside it, are
// nested in it and count in it with their reference span. Both ends of an entry are rounded, unless
// tuplets take whole units; a tuplet ends exactly where its reference span does. A tuplet with a
// span that is not positive or beyond 2^20 units, with a ratio beyond 1:64 or 64:1, or nested
// deeper than four, is ignored.
void ComputeTimes(std::vector<EXENTRY>& entries, const RecordStore& records,
                  TupletRounding rounding = TupletRounding::kBothEnds);

// The exact end of each entry, by the same rules; for a grace entry, its position.
std::vector<TimePosition> ExactEndsOf(const std::vector<EXENTRY>& entries,
                                      const RecordStore& records);

// A tuplet on record and the entries that count in it.
struct TupletRun {
    std::size_t first = 0;  // places among the frame's entries
    std::size_t last = 0;
    int outer = -1;  // the place among the runs of the tuplet around it; -1 = none
    const Bytes* record = nullptr;
};

// The tuplets of the voice-1 or the voice-2 entries, by the rules above: in the order of their
// first entries, outer ones before those inside. One that is ignored, or starts at a grace entry,
// contains only that entry. Valid until a tuplet's record changes.
std::vector<TupletRun> TupletRunsOf(const std::vector<EXENTRY>& entries, bool voice2,
                                    const RecordStore& records);

// In duration units from the start of the measure.
inline i32 EndOf(const EXENTRY& entry) {
    return entry.elapsedTime + entry.actualDuration;
}

}  // namespace standin
