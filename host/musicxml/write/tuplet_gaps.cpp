#include "host/musicxml/write/tuplet_gaps.h"

#include <algorithm>
#include <iterator>

namespace standin {
namespace {

bool IsWritten(const PlannedEvent& event) {
    return event.place.isWritten;
}

bool ShareTime(const BracketPlace& a, const BracketPlace& b) {
    return a.start < b.end && b.start < a.end;
}

// Whether the event is in a part of the tuplet, or in one that takes the same time.
bool IsInPartOf(const TupletLine& line, std::size_t event, const BracketTuplet& tuplet,
                const BracketPlace& span) {
    return std::ranges::any_of(line.tuplets, [&](const BracketTuplet& own) {
        const bool isSame = own.text.bracket != 0 && own.text.bracket == tuplet.text.bracket;
        const bool isAsLong = line.events[own.first].place.start == span.start &&
                              line.events[own.last].place.end == span.end;
        return own.first <= event && event <= own.last && (isSame || isAsLong);
    });
}

bool Cuts(const TupletLine& line, const BracketTuplet& tuplet,
          const std::vector<PlannedEvent>& ofTuplet) {
    const auto first = ofTuplet.begin() + static_cast<std::ptrdiff_t>(tuplet.first);
    const auto end = ofTuplet.begin() + static_cast<std::ptrdiff_t>(tuplet.last) + 1;
    if (std::none_of(first, end, IsWritten)) {
        return false;
    }
    const BracketPlace span{first->place.start, std::prev(end)->place.end};
    const bool isAsRead =
        std::all_of(first, end, [](const PlannedEvent& event) { return event.place.isAsRead; });
    for (std::size_t i = 0; i < line.events.size(); ++i) {
        const PlannedEvent& event = line.events[i];
        const bool isNew = !isAsRead || !event.place.isAsRead;
        if (isNew && IsWritten(event) && !event.IsGrace() && ShareTime(event.place, span) &&
            !IsInPartOf(line, i, tuplet, span)) {
            return true;
        }
    }
    return false;
}

bool CutsAny(const TupletLine& line, const TupletLine& other) {
    return std::ranges::any_of(other.tuplets, [&](const BracketTuplet& tuplet) {
        return Cuts(line, tuplet, other.events);
    });
}

}  // namespace

bool CutATuplet(const TupletLine& a, const TupletLine& b) {
    return CutsAny(a, b) || CutsAny(b, a);
}

void WriteGapsOfTuplets(const std::vector<PlannedEvent*>& events,
                        const std::vector<BracketTuplet>& tuplets) {
    const auto isWritten = [](const PlannedEvent* event) { return IsWritten(*event); };
    for (const BracketTuplet& tuplet : tuplets) {
        const auto first = events.begin() + static_cast<std::ptrdiff_t>(tuplet.first);
        const auto end = events.begin() + static_cast<std::ptrdiff_t>(tuplet.last) + 1;
        if (std::none_of(first, end, isWritten)) {
            continue;
        }
        for (auto gap = first; gap != end; ++gap) {
            BracketPlace& place = (*gap)->place;
            place.isWritten =
                place.isWritten || std::ranges::none_of(events, [&](const PlannedEvent* other) {
                    return isWritten(other) && ShareTime(other->place, place);
                });
        }
    }
}

}  // namespace standin
