#include "host/desktop/grid/selection_editor.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace standin::desktop {

void SelectionEditor::SetShape(ScoreShape shape) {
    m_shape = std::move(shape);
    const auto beyond = [this](const End& end) {
        return end.slot > m_shape.staves || end.measure > static_cast<int>(m_shape.measures.size());
    };
    if (m_span && (beyond(m_span->anchor) || beyond(m_span->focus))) {
        m_span.reset();
    }
}

const MeasureShape& SelectionEditor::Measure(int measure) const {
    return m_shape.measures[static_cast<std::size_t>(measure) - 1];
}

SelectionEditor::End SelectionEditor::EndAt(GridPoint point, SelectionUnit unit) const {
    End end{point.slot, point.measure, kWhole};
    if (unit == SelectionUnit::kBeat) {
        const MeasureShape& measure = Measure(point.measure);
        end.beat = std::clamp(point.position / measure.beat, 0, measure.Beats() - 1);
    }
    return end;
}

void SelectionEditor::Begin(GridPoint point, SelectionUnit unit) {
    if (m_shape.IsEmpty()) {
        return;
    }
    const End end = EndAt(point, unit);
    m_span = Span{end, end};
}

void SelectionEditor::Extend(GridPoint point, SelectionUnit unit) {
    if (!m_span) {
        Begin(point, unit);
        return;
    }
    m_span->focus = EndAt(point, unit);
}

void SelectionEditor::MoveBeats(End& end, int step) const {
    if (end.beat == kWhole) {
        end.beat = step > 0 ? Measure(end.measure).Beats() - 1 : 0;
    }
    end.beat += step;
    const int last = static_cast<int>(m_shape.measures.size());
    if (end.beat < 0 && end.measure > 1) {
        --end.measure;
        end.beat = Measure(end.measure).Beats() - 1;
    } else if (end.beat >= Measure(end.measure).Beats() && end.measure < last) {
        ++end.measure;
        end.beat = 0;
    }
    end.beat = std::clamp(end.beat, 0, Measure(end.measure).Beats() - 1);
}

void SelectionEditor::Move(Direction direction, SelectionUnit unit, bool extend) {
    if (m_shape.IsEmpty()) {
        return;
    }
    if (!m_span) {
        Begin(GridPoint{}, unit);
        return;
    }
    End end = m_span->focus;
    const bool sideways = direction == Direction::kLeft || direction == Direction::kRight;
    const int step = direction == Direction::kLeft || direction == Direction::kUp ? -1 : 1;
    if (!sideways) {
        end.slot = std::clamp(end.slot + step, 1, m_shape.staves);
    } else if (unit == SelectionUnit::kBeat) {
        MoveBeats(end, step);
    } else {
        end.beat = kWhole;
        end.measure = std::clamp(end.measure + step, 1, static_cast<int>(m_shape.measures.size()));
    }
    m_span->focus = end;
    if (!extend) {
        m_span->anchor = end;
    }
}

void SelectionEditor::SelectAll() {
    if (m_shape.IsEmpty()) {
        return;
    }
    const int last = static_cast<int>(m_shape.measures.size());
    m_span = Span{End{1, 1, kWhole}, End{m_shape.staves, last, kWhole}};
}

void SelectionEditor::Adopt(const std::optional<EREGION>& region) {
    m_span.reset();
    if (!region || m_shape.IsEmpty()) {
        return;
    }
    const int staves = m_shape.staves;
    const int measures = static_cast<int>(m_shape.measures.size());
    End first{std::clamp<int>(region->startSlot, 1, staves),
              std::clamp<int>(region->startMeasure, 1, measures), kWhole};
    End last{std::clamp<int>(region->endSlot, 1, staves),
             std::clamp<int>(region->endMeasure, 1, measures), kWhole};
    if (region->startPosition > 0) {
        first.beat = region->startPosition / Measure(first.measure).beat;
    }
    if (region->endPosition < Measure(last.measure).duration - 1) {
        last.beat = std::max(i32{region->endPosition}, 0) / Measure(last.measure).beat;
    }
    // A whole measure extends to both of its ends, so next to a beat it is also expressed in beats.
    if (first.beat != kWhole || last.beat != kWhole) {
        first.beat = std::max(first.beat, 0);
        last.beat = last.beat == kWhole ? Measure(last.measure).Beats() - 1 : last.beat;
    }
    m_span = Span{first, last};
}

void SelectionEditor::WidenToMeasures() {
    if (m_span) {
        m_span->anchor.beat = kWhole;
        m_span->focus.beat = kWhole;
    }
}

void SelectionEditor::WidenToStaves() {
    if (m_span) {
        m_span->anchor.slot = 1;
        m_span->focus.slot = m_shape.staves;
    }
}

i32 SelectionEditor::StartOf(const End& end) const {
    return end.beat == kWhole ? 0 : end.beat * Measure(end.measure).beat;
}

i32 SelectionEditor::LastOf(const End& end) const {
    const MeasureShape& measure = Measure(end.measure);
    if (end.beat == kWhole || end.beat == measure.Beats() - 1) {
        return kEndOfMeasure;
    }
    return (end.beat + 1) * measure.beat - 1;
}

std::optional<EREGION> SelectionEditor::Region() const {
    if (!m_span) {
        return std::nullopt;
    }
    const End& a = m_span->anchor;
    const End& b = m_span->focus;
    const auto [firstMeasure, start] =
        std::min(std::tuple{a.measure, StartOf(a)}, std::tuple{b.measure, StartOf(b)});
    const auto [lastMeasure, last] =
        std::max(std::tuple{a.measure, LastOf(a)}, std::tuple{b.measure, LastOf(b)});
    EREGION region{};
    region.startSlot = static_cast<i16>(std::min(a.slot, b.slot));
    region.endSlot = static_cast<i16>(std::max(a.slot, b.slot));
    region.startMeasure = static_cast<i16>(firstMeasure);
    region.endMeasure = static_cast<i16>(lastMeasure);
    region.startPosition = start;
    region.endPosition = last;
    return region;
}

std::optional<GridPoint> SelectionEditor::Focus() const {
    if (!m_span) {
        return std::nullopt;
    }
    return GridPoint{m_span->focus.slot, m_span->focus.measure, StartOf(m_span->focus)};
}

}  // namespace standin::desktop
