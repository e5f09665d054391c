#include "host/musicxml/read/spanners.h"

#include <algorithm>
#include <cstring>
#include <tuple>
#include <utility>

#include "host/musicxml/note_details.h"
#include "host/score/smart_shape.h"

namespace standin {
namespace {

bool BelongTogether(const SpannerEnding& a, const SpannerEnding& b) {
    return a.number == b.number && a.name == b.name;
}

bool SameVoice(const SpannerEnding& a, const SpannerEnding& b) {
    return a.voice == b.voice && a.staff == b.staff;
}

// Grace notes come before the note they lead to; at a note, lines end before others begin.
bool ComesBefore(const SpannerEnding& a, const SpannerEnding& b) {
    const auto order = [](const SpannerEnding& ending) {
        const u32 graceOrder = ending.atGrace ? ending.entry : 0;
        return std::tuple{ending.position, !ending.atGrace, graceOrder, ending.isStart};
    };
    return order(a) < order(b);
}

EDTSmartShapeEnd EndOf(const SpannerEnding& ending) {
    return {ending.staff, ending.measure, ending.entry, ending.position};
}

// Removes and returns the ending.
SpannerEnding Take(std::vector<SpannerEnding>& endings, std::vector<SpannerEnding>::iterator at) {
    SpannerEnding taken = std::move(*at);
    endings.erase(at);
    return taken;
}

}  // namespace

bool IsSpanner(std::string_view elementName) {
    return elementName == "slur" || elementName == "glissando" || elementName == "slide" ||
           elementName == "wavy-line";
}

bool Spanners::EndMeasure() {
    std::stable_sort(m_measure.begin(), m_measure.end(), ComesBefore);
    for (SpannerEnding& ending : m_measure) {
        if (ending.isStart) {
            m_starts.push_back(std::move(ending));
        } else {
            Stop(std::move(ending));
        }
    }
    m_measure.clear();
    return m_fits;
}

void Spanners::Stop(SpannerEnding stop) {
    auto best = m_starts.end();
    for (auto start = m_starts.begin(); start != m_starts.end(); ++start) {
        const bool fits = BelongTogether(*start, stop);
        const bool isBetter =
            best == m_starts.end() || SameVoice(*start, stop) || !SameVoice(*best, stop);
        if (fits && isBetter) {
            best = start;
        }
    }
    if (best != m_starts.end()) {
        Join(Take(m_starts, best), stop);
    } else {
        m_stops.push_back(std::move(stop));
    }
}

void Spanners::Join(const SpannerEnding& start, const SpannerEnding& stop) {
    AddShape(start, stop, {start.fragment, stop.fragment, start.note, stop.note});
}

// Both ends are at the one entry, so that the shape goes wherever that goes.
bool Spanners::KeepUnpaired() {
    for (const SpannerEnding& ending : m_starts) {
        AddShape(ending, ending, {ending.fragment, 0, ending.note, {}});
    }
    for (const SpannerEnding& ending : m_stops) {
        AddShape(ending, ending, {0, ending.fragment, {}, ending.note});
    }
    m_starts.clear();
    m_stops.clear();
    return m_fits;
}

void Spanners::AddShape(const SpannerEnding& start, const SpannerEnding& stop,
                        const SpannerText& text) {
    EDTSmartShape shape{};
    shape.start = EndOf(start);
    shape.end = EndOf(stop);
    std::memcpy(reinterpret_cast<char*>(&shape) + kSpannerTextOffset, &text, sizeof(text));
    m_fits = AddSmartShape(m_document, shape) != 0 && m_fits;
}

}  // namespace standin
