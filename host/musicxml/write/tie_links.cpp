#include "host/musicxml/write/tie_links.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace standin {
namespace {

struct TiedNote {
    std::size_t stream = 0;
    const PlannedEvent* event = nullptr;
    int note = 0;
};

// The ends of ties that meet: on one staff, at one time, at one pitch.
struct Meeting {
    std::vector<TiedNote> starts;
    std::vector<TiedNote> stops;
};

using Place = std::tuple<std::size_t, i64, i64, u16, u16>;  // staff, time, pitch
using Meetings = std::map<Place, Meeting>;

void AddNotes(const PlannedEvent& event, std::size_t stream, Meetings& meetings) {
    const auto place = [&event](Rational time, const EXNOTE& note) {
        return Place{event.staff, time.num, time.den, note.pitch, note.second};
    };
    for (int i = 0; i < event.time.entry->noteCount; ++i) {
        const EXNOTE& note = event.time.entry->notes[i];
        if ((note.flags & NoteFlag::kTieStart) != 0) {
            meetings[place(event.End(), note)].starts.push_back({stream, &event, i});
        }
        if ((note.flags & NoteFlag::kTieEnd) != 0) {
            meetings[place(event.time.start, note)].stops.push_back({stream, &event, i});
        }
    }
}

// Those of one stream belong together.
void DropPairsOfOneStream(Meeting& meeting) {
    std::erase_if(meeting.starts, [&meeting](const TiedNote& start) {
        const auto stop = std::ranges::find(meeting.stops, start.stream, &TiedNote::stream);
        if (stop == meeting.stops.end()) {
            return false;
        }
        meeting.stops.erase(stop);
        return true;
    });
}

bool HasTieEnd(const PlannedEvent& event, const EXNOTE& note) {
    return std::any_of(event.time.entry->notes,
                       event.time.entry->notes + event.time.entry->noteCount,
                       [&note](const EXNOTE& other) {
                           return (other.flags & NoteFlag::kTieEnd) != 0 &&
                                  other.pitch == note.pitch && other.second == note.second;
                       });
}

struct TieEnds {
    const PlannedEvent* another = nullptr;  // at the measure's start, in another voice
    const PlannedEvent* later = nullptr;    // in the same voice
};

// Of a note that is tied into the measure of these streams. None when it ends in its own voice.
TieEnds TieEndsOf(const std::vector<const PlannedStream*>& streams, const PlannedStream& own,
                  std::size_t staff, const EXNOTE& note) {
    TieEnds ends;
    for (const PlannedStream* stream : streams) {
        const bool isOwn = stream->voice == own.voice;
        for (const PlannedEvent& event : stream->events) {
            if (event.staff != staff || event.IsGrace() || !HasTieEnd(event, note)) {
                continue;
            }
            if (isOwn && event.time.start.IsZero()) {
                return {};
            }
            if (isOwn) {
                ends.later = ends.later == nullptr ? &event : ends.later;
            } else if (event.time.start.IsZero()) {
                ends.another = &event;
            }
        }
    }
    return ends;
}

}  // namespace

std::vector<TieLink> TieLinksOf(const std::vector<const PlannedStream*>& streams) {
    Meetings meetings;
    for (std::size_t i = 0; i < streams.size(); ++i) {
        for (const PlannedEvent& event : streams[i]->events) {
            AddNotes(event, i, meetings);
        }
    }
    std::vector<TieLink> links;
    for (auto& [place, meeting] : meetings) {
        DropPairsOfOneStream(meeting);
        const std::size_t count = std::min(meeting.starts.size(), meeting.stops.size());
        for (std::size_t i = 0; i < count; ++i) {
            const TiedNote& start = meeting.starts[i];
            const TiedNote& stop = meeting.stops[i];
            links.push_back({start.stream, stop.stream, start.event, stop.event, start.note});
        }
    }
    return links;
}

std::vector<PassingTie> PassingTiesOf(const std::vector<const PlannedStream*>& streams,
                                      const std::vector<const PlannedStream*>& next) {
    Rational end{};
    for (const PlannedStream* stream : streams) {
        end = stream->events.empty() ? end : std::max(end, stream->events.back().End());
    }
    std::vector<PassingTie> ties;
    for (const PlannedStream* stream : streams) {
        for (const PlannedEvent& event : stream->events) {
            for (int i = 0; event.End() == end && i < event.time.entry->noteCount; ++i) {
                const EXNOTE& note = event.time.entry->notes[i];
                if ((note.flags & NoteFlag::kTieStart) != 0) {
                    const TieEnds ends = TieEndsOf(next, *stream, event.staff, note);
                    if (ends.another != nullptr && ends.later != nullptr) {
                        ties.push_back({&event, i, ends.another, ends.later});
                    }
                }
            }
        }
    }
    return ties;
}

}  // namespace standin
