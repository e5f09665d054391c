// The shape of a score as a grid: its staves and the lengths of its measures.
#pragma once

#include <vector>

#include "host/score/document.h"
#include "shell/host/host_types.h"

namespace standin::desktop {

// Both in duration units and above 0; a measure's last beat may be cut short.
struct MeasureShape {
    i32 duration = 4 * kQuarterNote;
    i32 beat = kQuarterNote;

    i32 Beats() const noexcept { return (duration + beat - 1) / beat; }
};

struct ScoreShape {
    int staves = 0;
    std::vector<MeasureShape> measures;

    bool IsEmpty() const noexcept { return staves == 0 || measures.empty(); }
};

ScoreShape ShapeOf(const Document& document);

}  // namespace standin::desktop
