// Tuplets that a merge divided.
#pragma once

#include <set>
#include <utility>
#include <vector>

#include "host/report/remarks.h"

namespace standin {

// Adds one for each tuplet over two staves of which the notes of one staff moved and those of the
// other did not, and for each chord that took in a note from a tuplet without being in one of the
// same time. Tuplets without brackets do not count. firstSlot: of the part's staves, counted from 1
// through the score; destination: from 0; changed: Document::ChangedMeasures.
void AddTupletRemarks(const ImportedScore& score, const ScorePart& part, u16 firstSlot,
                      u16 destination, const std::set<std::pair<u16, u16>>& changed,
                      std::vector<Remark>& remarks);

}  // namespace standin
