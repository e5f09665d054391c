#include "host/musicxml/spanners.h"

#include <algorithm>
#include <cstring>
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

bool IsBefore(const SpannerEnding& a, const SpannerEnding& b) {
    return std::pair{a.measure, a.position} < std::pair{b.measure, b.position};
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

void Spanners::Start(SpannerEnding start) {
    // Only a stop of this measure can be this line's: one at a later time, in another voice.
    const auto stop = std::find_if(m_stops.begin(), m_stops.end(), [&](const auto& candidate) {
        return BelongTogether(candidate, start) && candidate.measure == start.measure &&
               IsBefore(start, candidate);
    });
    if (stop != m_stops.end()) {
        Join(start, Take(m_stops, stop));
    } else {
        m_starts.push_back(std::move(start));
    }
}

void Spanners::Stop(SpannerEnding stop) {
    auto best = m_starts.end();
    for (auto start = m_starts.begin(); start != m_starts.end(); ++start) {
        const bool fits = BelongTogether(*start, stop) && !IsBefore(stop, *start);
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

std::vector<SpannerEnding> Spanners::TakeUnpaired() {
    std::vector<SpannerEnding> unpaired = std::exchange(m_starts, {});
    std::move(m_stops.begin(), m_stops.end(), std::back_inserter(unpaired));
    m_stops.clear();
    return unpaired;
}

void Spanners::Join(const SpannerEnding& start, const SpannerEnding& stop) {
    EDTSmartShape shape{};
    shape.start = EndOf(start);
    shape.end = EndOf(stop);
    SpannerText text{start.fragment, stop.fragment, start.pitch, stop.pitch, 0};
    text.ends = static_cast<u16>((start.onLaterNote ? SpannerEnd::kStartOnLaterNote : 0U) |
                                 (stop.onLaterNote ? SpannerEnd::kStopOnLaterNote : 0U));
    std::memcpy(reinterpret_cast<char*>(&shape) + kSpannerTextOffset, &text, sizeof(text));
    AddSmartShape(m_document, shape);
}

}  // namespace standin
