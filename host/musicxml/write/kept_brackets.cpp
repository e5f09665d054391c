#include "host/musicxml/write/kept_brackets.h"

#include <algorithm>

#include "host/score/records/tags.h"
#include "shell/host/detail_flags.h"

namespace standin {
namespace {

// A tuplet with brackets, as it was read.
struct ReadTuplet {
    std::size_t staff = 0;
    Rational start{};
    Rational end{};
    TupletText text{};
    std::vector<TimedEntry> entries;
};

RecordStore ReadTupletRecords(const Document& document, const Frame& frame) {
    RecordStore records;
    for (const EXENTRY& entry : frame.entries) {
        for (u16 number = 0; (entry.flags & DetailFlag::kTuplet) != 0; ++number) {
            const RecordKey key = RecordKey::OfEntry(entry.entryNumber, number);
            const Bytes* record = document.ImportedRecord(Tag::kTuplet, key);
            if (record == nullptr) {
                break;
            }
            records.Exchange(Tag::kTuplet, key, *record);
        }
    }
    return records;
}

void AddReadTuplets(const Frame& frame, const RecordStore& records,
                    const std::vector<TimedEntry>& entries, std::size_t staff,
                    std::vector<ReadTuplet>& all) {
    std::vector<std::size_t> indices;
    indices.reserve(entries.size());
    for (const TimedEntry& timed : entries) {
        indices.push_back(static_cast<std::size_t>(timed.entry - frame.entries.data()));
    }
    std::vector<BracketTuplet> tuplets;
    AddBracketTuplets(frame.entries, records, indices, tuplets);
    for (const BracketTuplet& tuplet : tuplets) {
        if (tuplet.text.start != 0 && tuplet.text.stop != 0) {
            const auto first = entries.begin() + static_cast<std::ptrdiff_t>(tuplet.first);
            const auto last = entries.begin() + static_cast<std::ptrdiff_t>(tuplet.last);
            all.push_back(
                {staff, first->start, last->start + last->length, tuplet.text, {first, last + 1}});
        }
    }
}

std::vector<ReadTuplet> ReadTupletsOf(const ImportedScore& score, const ScorePart& part,
                                      u16 measure) {
    std::vector<ReadTuplet> all;
    const PartMeasure& original = part.measures[measure - 1U];
    for (std::size_t staff = 0; staff < part.staves.size(); ++staff) {
        for (u16 layer = 0; layer < original.layers; ++layer) {
            const Frame* frame =
                score.document->ImportedFrame({part.staves[staff].staff, measure, layer});
            if (frame == nullptr) {
                continue;
            }
            const RecordStore records = ReadTupletRecords(*score.document, *frame);
            for (const bool voice2 : {false, true}) {
                AddReadTuplets(*frame, records,
                               TimedEntriesOf(score, *frame, voice2, original.grid), staff, all);
            }
        }
    }
    return all;
}

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
           std::any_of(tuplet.entries.begin(), tuplet.entries.end(), [&](const TimedEntry& read) {
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
        const auto bracketed =
            std::find_if(read.begin(), read.end(), [&](const ReadTuplet& candidate) {
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
