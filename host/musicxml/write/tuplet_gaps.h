// The gaps in tuplets of a voice that goes over two staves: on each staff, gaps take the time of
// what the other one has of the tuplet.
#pragma once

#include <vector>

#include "host/musicxml/write/measure_plan.h"

namespace standin {

// Events and the tuplets among them.
struct TupletLine {
    const std::vector<PlannedEvent>& events;
    const std::vector<BracketTuplet>& tuplets;
};

// Whether music of the one would sound in a gap of the other's tuplets without being of that
// tuplet, where it did not when the score was read. Then they cannot be one voice.
bool CutATuplet(const TupletLine& a, const TupletLine& b);

// Writes hidden rests for gaps in which nothing of the voice sounds any more: what was on the
// other staff is gone, or in another voice.
void WriteGapsOfTuplets(const std::vector<PlannedEvent*>& events,
                        const std::vector<BracketTuplet>& tuplets);

}  // namespace standin
