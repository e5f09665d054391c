// Brackets whose tuplet came to be another one on record.
#pragma once

#include <vector>

#include "host/musicxml/write/measure_plan.h"

namespace standin {

// If notes of a tuplet with brackets came into a tuplet of the same time without them, or the
// other way round, the record that remains may have none: then the tuplet takes the brackets that
// its notes had. events: of one voice in the measure, counted from 1; tuplets: in places among
// them.
void KeepBracketsOfNotes(const ImportedScore& score, const ScorePart& part, u16 measure,
                         const std::vector<PlannedEvent*>& events,
                         std::vector<BracketTuplet>& tuplets);

}  // namespace standin
