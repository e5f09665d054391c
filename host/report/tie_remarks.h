// Ties and other lines that other programs may read otherwise after a merge.
#pragma once

#include <set>
#include <utility>
#include <vector>

#include "host/report/remarks.h"

namespace standin {

// Adds one for each tie of the part of which a merge moved one end into another voice, where a
// reader may not find that end, and for each slur or other line between notes that now stops before
// it starts in the text. firstSlot: of the part's staves, counted from 1 through the score;
// changed: Document::ChangedMeasures.
void AddTieRemarks(const ImportedScore& score, const ScorePart& part, u16 firstSlot,
                   const std::set<std::pair<u16, u16>>& changed, std::vector<Remark>& remarks);

}  // namespace standin
