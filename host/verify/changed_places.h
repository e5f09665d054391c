// Where two states of a document differ.
#pragma once

#include <set>
#include <utility>

#include "host/score/document.h"

namespace standin {

using StaffMeasure = std::pair<u16, u16>;  // staff, measure
using StaffMeasures = std::set<StaffMeasure>;

inline StaffMeasure MeasureOf(FrameKey key) {
    return {key.staff, key.measure};
}

// The staves and measures with a frame, a detail of an entry, an end of a smart shape or an
// expression that differs, and those with an entry whose number is in several places. In all
// others each entry has the notes and all that belongs to it in both states.
StaffMeasures ChangedPlaces(const DocumentContent& before, const DocumentContent& after);

}  // namespace standin
