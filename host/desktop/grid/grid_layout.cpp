#include "host/desktop/grid/grid_layout.h"

#include <algorithm>

namespace standin::desktop {

namespace {

constexpr int kPixelsPerQuarter = 30;
constexpr int kNarrowestMeasure = 60;

int WidthOf(const MeasureShape& measure) {
    const i64 width = i64{measure.duration} * kPixelsPerQuarter / kQuarterNote;
    return static_cast<int>(std::clamp<i64>(width, kNarrowestMeasure, 40 * kPixelsPerQuarter));
}

}  // namespace

GridLayout::GridLayout(const ScoreShape& shape)
    : m_staves{shape.staves}, m_measures{shape.measures} {
    int edge = kNameWidth;
    m_edges.push_back(edge);
    for (const MeasureShape& measure : m_measures) {
        edge += WidthOf(measure);
        m_edges.push_back(edge);
    }
}

PixelRect GridLayout::Cell(int slot, int measure) const {
    const auto index = static_cast<std::size_t>(measure);
    const int top = kNumberHeight + (slot - 1) * kRowHeight;
    return {m_edges[index - 1], top, m_edges[index], top + kRowHeight};
}

PixelRect GridLayout::LayerStrip(int slot, int measure, int layer) const {
    PixelRect strip = Cell(slot, measure);
    strip.top += 5 + layer * kLayerHeight;
    strip.bottom = strip.top + kLayerHeight;
    return strip;
}

int GridLayout::XOf(int measure, i32 position) const {
    const auto index = static_cast<std::size_t>(measure);
    const int left = m_edges[index - 1];
    const int right = m_edges[index];
    const i32 duration = m_measures[index - 1].duration;
    const i32 within = std::clamp(position, 0, duration);
    return left + static_cast<int>(i64{within} * (right - left) / duration);
}

std::optional<GridPoint> GridLayout::Hit(int x, int y) const {
    if (x < kNameWidth || y < kNumberHeight || x >= Width() || y >= Height()) {
        return std::nullopt;
    }
    return Nearest(x, y);
}

std::optional<GridPoint> GridLayout::Nearest(int x, int y) const {
    if (m_staves == 0 || m_measures.empty()) {
        return std::nullopt;
    }
    GridPoint point;
    point.slot = std::clamp((y - kNumberHeight) / kRowHeight + 1, 1, m_staves);
    const int within = std::clamp(x, kNameWidth, m_edges.back() - 1);
    const auto edge = std::ranges::upper_bound(m_edges, within);
    point.measure = static_cast<int>(edge - m_edges.begin());
    const int left = *(edge - 1);
    const i32 duration = m_measures[static_cast<std::size_t>(point.measure) - 1].duration;
    point.position = static_cast<i32>(i64{within - left} * duration / (*edge - left));
    return point;
}

}  // namespace standin::desktop
