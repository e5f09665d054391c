#include "host/musicxml/write/kept_brackets.h"

#include <algorithm>

#include "host/musicxml/write/entries/read_tuplets.h"

namespace standin {
namespace {

bool ShareANote(const EXENTRY& a, const EXENTRY& b) {
    const auto* end = a.notes + a.noteCount;
    return std::any_of(b.notes, b.notes + b.noteCount, [&](const EXNOTE& note) {
        return std::any_of(a.notes, end, [&note](const EXNOTE& other) {
            return other.pitch == note.pitch && other.second == note.second;
        });
    });
}

// Whether the event, or what it came from, was in the tuplet.
bool WasIn(const ReadTuplet& tuplet, const PlannedEvent& event) {
    const EXENTRY& entry = *event.time.entry;
    return tuplet.staff == event.staff &&
           std::ranges::any_of(tuplet.entries, [&](const TimedEntry& read) {
               return read.start == event.time.start && ShareANote(*read.entry, entry) &&
                      (event.cameIn || read.entry->entryNumber == entry.entryNumber);
           });
}

}  // namespace

void KeepBracketsOfNotes(const ImportedScore& score, const ScorePart& part, u16 measure,
                         const std::vector<PlannedEvent*>& events,
                         std::vector<BracketTuplet>& tuplets) {
    std::vector<ReadTuplet> read;
    for (BracketTuplet& tuplet : tuplets) {
        if (tuplet.text.start != 0 || tuplet.text.stop != 0) {
            continue;
        }
        if (read.empty()) {
            read = ReadTupletsOf(score, part, measure);
        }
        const auto first = events.begin() + static_cast<std::ptrdiff_t>(tuplet.first);
        const auto end = events.begin() + static_cast<std::ptrdiff_t>(tuplet.last) + 1;
        const auto bracketed = std::ranges::find_if(read, [&](const ReadTuplet& candidate) {
            return candidate.start == (*first)->time.start &&
                   candidate.end == (*std::prev(end))->End() &&
                   std::any_of(first, end, [&candidate](const PlannedEvent* event) {
                       return WasIn(candidate, *event);
                   });
        });
        if (bracketed != read.end()) {
            tuplet.text = bracketed->text;
        }
    }
}

}  // namespace standin
