// Where the staves (rows) and measures (columns) of the grid lie, in pixels. The top row holds
// the measure numbers, the left column the staff names; both stay in place when the rest scrolls.
#pragma once

#include <optional>

#include "host/desktop/grid/score_shape.h"

namespace standin::desktop {

// right and bottom lie just outside.
struct PixelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

// A place in the score: slot and measure from 1, position in duration units from the barline.
struct GridPoint {
    int slot = 1;
    int measure = 1;
    i32 position = 0;
};

class GridLayout {
public:
    static constexpr int kNameWidth = 132;
    static constexpr int kNumberHeight = 22;
    static constexpr int kLayerHeight = 17;
    static constexpr int kLayers = 4;
    static constexpr int kRowHeight = kLayers * kLayerHeight + 10;

    GridLayout() = default;
    explicit GridLayout(const ScoreShape& shape);

    // The size of everything, names and numbers included.
    int Width() const noexcept { return m_edges.empty() ? 0 : m_edges.back(); }
    int Height() const noexcept { return kNumberHeight + m_staves * kRowHeight; }

    // Unscrolled coordinates. Slots and measures must exist.
    PixelRect Cell(int slot, int measure) const;
    PixelRect LayerStrip(int slot, int measure, int layer) const;
    // The x of a position; positions beyond the measure give its right edge.
    int XOf(int measure, i32 position) const;

    // The cell at a point; nothing on the names and numbers and beyond the last staff and measure.
    std::optional<GridPoint> Hit(int x, int y) const;
    // As Hit, but the nearest cell also for points on names and numbers, and beyond the score, as a
    // drag needs it.
    std::optional<GridPoint> Nearest(int x, int y) const;

private:
    int m_staves = 0;
    std::vector<MeasureShape> m_measures;
    std::vector<int> m_edges;  // left edges of the measures, then the right edge of the last
};

}  // namespace standin::desktop
