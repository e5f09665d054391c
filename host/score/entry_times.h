// When the entries of a frame start and how long they take.
#pragma once

#include <vector>

#include "host/score/record_store.h"
#include "shell/host/host_frames.h"

namespace standin {

// Sets elapsed time and actual duration of every entry, in duration units, from the notated
// durations and the tuplets on record. A grace entry takes no time and stands with its main
// note. Voice 2 starts with the entry that launches it; voice 1 goes on where that entry ends.
//
// A tuplet begins at the entry it is recorded with and runs over entries of that voice until
// its symbolic span is full; further tuplets of the same entry, and ones that begin inside it,
// are nested in it and count in it with their reference span. Both ends of an entry are
// rounded, so that a tuplet ends exactly where its reference span does. A tuplet with a span
// that is not positive or beyond 2^20 units, with a ratio beyond 1:64 or 64:1, or nested deeper
// than four, is taken as none.
void ComputeTimes(std::vector<EXENTRY>& entries, const RecordStore& records);

// In duration units from the start of the measure.
inline i32 EndOf(const EXENTRY& entry) {
    return entry.elapsedTime + entry.actualDuration;
}

}  // namespace standin
