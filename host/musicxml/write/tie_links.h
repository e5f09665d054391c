// Ties that continue in another stream of the measure.
#pragma once

#include <cstddef>
#include <vector>

#include "host/musicxml/write/measure_plan.h"

namespace standin {

// A tie between two streams. Readers find its end by pitch among the notes of the staff, if it
// comes after its start in the text.
struct TieLink {
    std::size_t from = 0;  // the stream
    std::size_t to = 0;
    const PlannedEvent* start = nullptr;
    const PlannedEvent* stop = nullptr;
    int note = 0;  // of the start, from 0
};

// Ties that end in their own stream or in another measure are left out.
std::vector<TieLink> TieLinksOf(const std::vector<const PlannedStream*>& streams);

// A tie into the next measure, where it ends in another voice, while its own voice has the end of
// another tie of that pitch there. Some readers look in the own voice first.
struct PassingTie {
    const PlannedEvent* start = nullptr;
    int note = 0;                         // of the start, from 0
    const PlannedEvent* stop = nullptr;   // where it ends
    const PlannedEvent* other = nullptr;  // that a reader may find
};

// Streams of a measure and of the next one.
std::vector<PassingTie> PassingTiesOf(const std::vector<const PlannedStream*>& streams,
                                      const std::vector<const PlannedStream*>& next);

}  // namespace standin
