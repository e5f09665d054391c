// The working state of one frame merge: a source and a destination layer of one staff in one
// measure, and what moved between them.
#pragma once

#include <map>
#include <optional>
#include <vector>

#include "Class Files/score/frames/FinPIEntryPtr.h"
#include "Class Files/score/frames/FinPITGFPtr.h"
#include "Class Files/score/region/FinPIRegion.h"
#include "merge/TupletSpans.h"

struct FramePair {
    FinPIRegion region;  // the selection
    FinPITGFPtr source;
    FinPITGFPtr destination;
    bool hideRests{};      // hide the rests that are left in the source
    bool staffSelected{};  // the staff lies between the region's slots
    // Grace indices from before the merge, by entry number: of the source's grace entries, and of
    // the source entries whose music a destination entry received.
    std::map<u32, i16> sourceGraces{};
    std::map<u32, i16> moved{};
    bool preFilled = false;  // the destination was given rests that mirror the source
    std::optional<std::vector<TupletSpan>> sourceTuplets{};  // read when first needed

    void AddMoved(const FinPIEntryPtr& from, const FinPIEntryPtr& to) {
        const auto grace = sourceGraces.find(from.Number());
        moved.emplace(to.Number(), grace == sourceGraces.end() ? i16{0} : grace->second);
    }
};
