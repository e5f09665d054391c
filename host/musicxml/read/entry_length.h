// How an entry of a given notated and actual length is kept by the host.
#pragma once

#include <optional>

#include "shell/host/host_records.h"

namespace standin {

// By how much a ratio of written to actual length may stretch or shrink a note.
inline constexpr i64 kLargestRatio = 64;

struct EntryLength {
    i16 duration = 0;
    bool needsTuplet = false;  // the actual length differs from the duration
    EDTTuplet2005 tuplet{};    // of this entry alone: its duration in the time of its length
};

// An entry keeps its ratio in a tuplet of its own, so that it takes its time wherever it goes.
// notated: by type and dots, 0 = no type. actual: the time it takes in the measure. Units are
// duration units. None when no entry can have that length.
std::optional<EntryLength> LengthOfEntry(i32 notated, i64 actual, bool grace);

}  // namespace standin
