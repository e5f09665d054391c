#include "host/musicxml/read/spanners.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <tuple>

#include "host/musicxml/xml/xml_node.h"
#include "host/score/smart_shape.h"

namespace standin {
namespace {

bool BelongTogether(const SpannerEnding& a, const SpannerEnding& b) {
    return a.number == b.number && a.kind == b.kind;
}

bool AreAtOneEntry(const SpannerEnding& a, const SpannerEnding& b) {
    return a.entry != 0 && a.entry == b.entry;
}

EDTSmartShapeEnd EndOf(const SpannerEnding& ending) {
    return {ending.staff, ending.measure, ending.entry, ending.position};
}

}  // namespace

bool IsSpanner(std::string_view elementName) {
    return elementName == "slur" || elementName == "glissando" || elementName == "slide" ||
           elementName == "wavy-line";
}

bool ReadLineEnd(pugi::xml_node element, SpannerEnding& ending) {
    const auto kind = LineKindOf(element.name());
    const auto role = kind ? LineRoleOf(*kind, element.attribute("type").value()) : std::nullopt;
    if (!role) {
        return false;
    }
    ending.kind = *kind;
    ending.role = *role;
    ending.number = IntegerOf(element.attribute("number").value()).value_or(1);
    ending.offset = OffsetOf(element);
    return true;
}

u32 Spanners::Add(const SpannerEnding& ending) {
    const u32 line = ending.role == LineRole::kStart  ? Start(ending)
                     : ending.role == LineRole::kStop ? Stop(ending)
                                                      : OnTheWay(ending);
    m_lines.ends.push_back({ending.offset, line, ending.role});
    return line;
}

// Voices are written one after the other, so a stop may come before its start in the text, but
// never in time.
u32 Spanners::Start(const SpannerEnding& start) {
    const auto stop = std::ranges::find_if(m_stops, [&](const Open& candidate) {
        return BelongTogether(candidate.ending, start) && !AreAtOneEntry(candidate.ending, start) &&
               candidate.ending.position >= start.position;
    });
    if (stop == m_stops.end()) {
        const u32 line = NewLine(start);
        m_starts.push_back({start, line});
        return line;
    }
    const Open found = *stop;
    m_stops.erase(stop);
    return Join(start, found.ending, found.line);
}

u32 Spanners::Stop(const SpannerEnding& stop) {
    const auto start = FindStart(stop);
    if (start == m_starts.end()) {
        const u32 line = NewLine(stop);
        m_stops.push_back({stop, line});
        return line;
    }
    const Open found = *start;
    m_starts.erase(start);
    return Join(found.ending, stop, found.line);
}

u32 Spanners::OnTheWay(const SpannerEnding& ending) {
    const auto start = FindStart(ending);
    return start == m_starts.end() ? NewLine(ending) : start->line;
}

// If a number is open twice, the stop ends the line of its voice, else the latest start. Only
// trills may begin and end on one note.
std::vector<Spanners::Open>::iterator Spanners::FindStart(const SpannerEnding& ending) {
    auto best = m_starts.end();
    const auto rank = [&](const Open& start) {
        const bool mayBeWhole = ending.kind == LineKind::kWavyLine;
        return std::tuple{mayBeWhole || !AreAtOneEntry(start.ending, ending),
                          start.ending.voice == ending.voice, start.ending.staff == ending.staff};
    };
    for (auto start = m_starts.begin(); start != m_starts.end(); ++start) {
        if (BelongTogether(start->ending, ending) &&
            (best == m_starts.end() || rank(*start) >= rank(*best))) {
            best = start;
        }
    }
    return best;
}

u32 Spanners::NewLine(const SpannerEnding& ending) {
    m_lines.lines.push_back({ending.kind, ending.number, false});
    return static_cast<u32>(m_lines.lines.size() - 1);
}

u32 Spanners::Join(const SpannerEnding& start, const SpannerEnding& stop, u32 line) {
    m_lines.lines[line].isWhole = true;
    m_pairs.push_back({start, stop, line});
    return line;
}

bool Spanners::EndMeasure() {
    for (const Pair& pair : m_pairs) {
        AddShape(pair);
    }
    m_pairs.clear();
    std::move(m_stops.begin(), m_stops.end(), std::back_inserter(m_lost));
    m_stops.clear();
    return m_fits;
}

bool Spanners::KeepUnpaired() {
    for (const Open& start : m_starts) {
        AddShapeOf(start);
    }
    for (const Open& stop : m_lost) {
        AddShapeOf(stop);
    }
    m_starts.clear();
    m_lost.clear();
    return m_fits;
}

void Spanners::AddShape(const Pair& pair) {
    const auto& [start, stop, line] = pair;
    if (start.entry == 0 || stop.entry == 0) {
        AddShapeOf({start.entry != 0 ? start : stop, line});
        return;
    }
    AddShape(start, stop, {start.fragment, stop.fragment, start.note, stop.note}, line);
}

// Both ends are at the one entry, so that the shape moves with it.
void Spanners::AddShapeOf(const Open& open) {
    const SpannerEnding& ending = open.ending;
    if (ending.entry == 0) {
        return;
    }
    SpannerText text{};
    const bool isStart = ending.role == LineRole::kStart;
    (isStart ? text.start : text.stop) = ending.fragment;
    (isStart ? text.startNote : text.stopNote) = ending.note;
    AddShape(ending, ending, text, open.line);
}

void Spanners::AddShape(const SpannerEnding& start, const SpannerEnding& stop,
                        const SpannerText& text, u32 line) {
    EDTSmartShape shape{};
    shape.start = EndOf(start);
    shape.end = EndOf(stop);
    std::memcpy(reinterpret_cast<char*>(&shape) + kSpannerTextOffset, &text, sizeof(text));
    const u16 number = AddSmartShape(m_document, shape);
    m_lines.lineOfShape[number] = line;
    m_fits = number != 0 && m_fits;
}

}  // namespace standin
