// The user's selection as mouse and keyboard change it: it spans from an anchor to a focus,
// each of them a whole measure or one beat of a measure.
#pragma once

#include <optional>

#include "host/desktop/grid/grid_layout.h"
#include "shell/host/host_frames.h"

namespace standin::desktop {

enum class SelectionUnit { kMeasure, kBeat };
enum class Direction { kLeft, kRight, kUp, kDown };

class SelectionEditor {
public:
    // A selection beyond the new shape is dropped.
    void SetShape(ScoreShape shape);

    // Selects the measure or beat at a place of the score.
    void Begin(GridPoint point, SelectionUnit unit);
    // Extends the selection to there; same as Begin if nothing is selected.
    void Extend(GridPoint point, SelectionUnit unit);
    // Selects the next measure, beat or staff in a direction, or extends the selection to it.
    // Selects the first one if nothing is selected. Stops at the edges of the score.
    void Move(Direction direction, SelectionUnit unit, bool extend);
    void SelectAll();
    void Clear() { m_span.reset(); }
    // Takes over a selection that was made elsewhere.
    void Adopt(const std::optional<EREGION>& region);
    // Whole measures, or every staff, instead of what is selected now.
    void WidenToMeasures();
    void WidenToStaves();

    // In the score's own staff list.
    std::optional<EREGION> Region() const;
    // The cell that moves last: slot and measure from 1. Nothing without a selection.
    std::optional<GridPoint> Focus() const;

private:
    static constexpr i32 kWhole = -1;
    struct End {
        int slot = 1;
        int measure = 1;
        i32 beat = kWhole;  // from 0; kWhole = the whole measure
    };
    struct Span {
        End anchor;
        End focus;
    };

    const MeasureShape& Measure(int measure) const;
    End EndAt(GridPoint point, SelectionUnit unit) const;
    void MoveBeats(End& end, int step) const;
    i32 StartOf(const End& end) const;
    i32 LastOf(const End& end) const;

    ScoreShape m_shape;
    std::optional<Span> m_span;
};

}  // namespace standin::desktop
