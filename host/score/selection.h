// Whether a place is inside a selection. Both ends of a selection are part of it.
#pragma once

#include <utility>

#include "shell/host/host_frames.h"

namespace standin {

// A staff, by its slot in the list of the selection's start, and a measure. No staff is in slot 0.
constexpr bool HoldsFrame(const EREGION& selection, i32 slot, u16 measure) noexcept {
    return slot != 0 && slot >= selection.startSlot && slot <= selection.endSlot &&
           measure >= selection.startMeasure && measure <= selection.endMeasure;
}

// A position in a measure, in duration units as selections count them.
constexpr bool HoldsPosition(const EREGION& selection, u16 measure, i32 position) noexcept {
    const std::pair at{i32{measure}, position};
    return at >= std::pair{i32{selection.startMeasure}, i32{selection.startPosition}} &&
           at <= std::pair{i32{selection.endMeasure}, i32{selection.endPosition}};
}

constexpr bool Holds(const EREGION& selection, i32 slot, u16 measure, i32 position) noexcept {
    return HoldsFrame(selection, slot, measure) && HoldsPosition(selection, measure, position);
}

}  // namespace standin
