// The tuplets of a measure as they were read.
#pragma once

#include <vector>

#include "host/musicxml/note_details.h"
#include "host/musicxml/write/entries/timed_entries.h"

namespace standin {

// The part of a tuplet with brackets that is on one staff.
struct ReadTuplet {
    std::size_t staff = 0;  // within the part, from 0
    u16 layer = 0;
    Rational start{};
    Rational end{};
    TupletText text{};
    std::vector<TimedEntry> entries;
};

// measure: counted from 1. By staff and layer; valid as long as the score's imported frames.
std::vector<ReadTuplet> ReadTupletsOf(const ImportedScore& score, const ScorePart& part,
                                      u16 measure);

}  // namespace standin
