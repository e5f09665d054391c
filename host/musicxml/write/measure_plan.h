// The content of a measure in the order of its text: streams of notes, each with its items.
#pragma once

#include <string>
#include <vector>

#include "host/musicxml/entry_texts.h"
#include "host/musicxml/write/entries/timed_entries.h"
#include "host/musicxml/write/entries/tuplet_brackets.h"
#include "host/musicxml/write/lines/line_ends.h"

namespace standin {

// An entry to write, with its beams.
struct PlannedEvent {
    TimedEntry time;
    std::size_t staff = 0;  // within the part, from 0
    u16 layer = 0;
    EntryTexts texts;
    std::string beams;
    BracketPlace place;
    bool beamedByHost = false;
    bool isFiller = false;  // not written if its voice contains nothing else
    bool cameIn = false;    // since the import

    bool IsGrace() const noexcept { return (time.entry->flags & EntryFlag::kGrace) != 0; }
    bool Sounds() const noexcept { return time.entry->noteCount > 0; }
    Rational End() const noexcept { return time.start + time.length; }
};

// One element of a stream: an event or, if that is null, an item.
struct PlannedStep {
    const PlannedEvent* event = nullptr;
    std::size_t item = 0;  // in the measure as it was read
    Rational time{};       // where it is written
};

// Consecutive events of one voice, on all its staves.
struct PlannedStream {
    std::string voice;                 // as it is written
    std::vector<PlannedEvent> events;  // in order of time
    std::vector<PlannedStep> steps;    // the events and the items among them
};

// A direction's voice, if it differs from the one in its text.
struct ItemVoice {
    std::size_t item = 0;
    std::string voice;
};

struct MeasurePlan {
    std::vector<PlannedStream> streams;  // in the order of the text; some hold items only
    std::vector<ItemVoice> itemVoices;

    bool HasNotes() const noexcept;
};

// part and measure: as the score has them, the measure counted from 0.
MeasurePlan PlanMeasure(const ImportedScore& score, const ScorePart& part, std::size_t measure);

// The elements of lines that the stream writes, in document order, added to those there are.
void AddEndsOfStream(const ImportedScore& score, const ScorePart& part, const PartMeasure& measure,
                     const PlannedStream& stream, std::vector<WrittenEnd>& ends);

}  // namespace standin
