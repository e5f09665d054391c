// How the host stores an entry of a given notated and actual length.
#pragma once

#include <optional>

#include "shell/host/host_records.h"

namespace standin {

// The limits of the ratio of written to actual length.
inline constexpr i64 kLargestRatio = 64;

struct EntryLength {
    i16 duration = 0;
    bool needsTuplet = false;  // the actual length differs from the duration
    EDTTuplet2005 tuplet{};    // of this entry alone: its duration in the time of its length
};

// An entry keeps its ratio in its own tuplet, so that it keeps its time wherever it moves. notated:
// by type and dots, 0 = no type. actual: the time it takes in the measure. Units are duration
// units. None when no entry can have that length.
std::optional<EntryLength> LengthOfEntry(i32 notated, i64 actual, bool grace);

}  // namespace standin
