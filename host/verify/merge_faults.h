// The conditions that every merge must meet, checked in the document before and after.
//
// Over all layers of a staff and measure: each note with its onset, duration, pitch and ties;
// attachments of an entry or note on an entry with the same notes; both ends of each smart shape;
// expressions on their music. Also: no voice overlaps itself, no measure grows, IDs are unique,
// detail flags match the details, notes leave only the source layers and arrive only in the
// destination, and nothing else in the score changes.
#pragma once

#include <string>
#include <vector>

#include "host/score/document.h"
#include "host/verify/merge_options.h"

namespace standin {

// One line per fault, such as "staff 1, measure 2, 1024+1024: c4 lost"; empty when all is well. The
// document gives staves, measures and the selection that was merged.
std::vector<std::string> FaultsOfMerge(const Document& document, const DocumentContent& before,
                                       const DocumentContent& after, const MergeOptions& options);

// The state that the merge starts from; when replacing, after the host has cleared the destination.
DocumentContent StartOfMerge(Document& document, const MergeOptions& options);

}  // namespace standin
