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
        const auto stop = std::find_if(
            meeting.stops.begin(), meeting.stops.end(),
            [&start](const TiedNote& candidate) { return candidate.stream == start.stream; });
        if (stop == meeting.stops.end()) {
            return false;
        }
        meeting.stops.erase(stop);
        return true;
    });
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

}  // namespace standin
