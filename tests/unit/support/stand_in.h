// A small score in the stand-in host, for one test: written and read in a few characters.
//
// Notation of a layer, entries in playing order, separated by blanks:
//   q:c4        a quarter note; b w h q e s t i are breve, whole, ... sixteenth, 32nd, 64th
//   q.:c#4,eb5  dotted, a chord; accidentals # ## b bb; octave 4 begins at middle C
//   q:c4~       a tie starts at the note; q:~c4 one ends there
//   h:r  h:x    a rest; a hidden rest
//   ge:c4       a grace note
//   q:c4!       a hidden note or chord
//   (3:2 e:c4 e:d4 e:e4)   a tuplet in units of its first entry; (3:2q q:c4 e:d4) of quarters
//   q:c4 v2{e:a3 e:b3}     voice 2, launched by the entry before it
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "host/score/application.h"
#include "host/score/document.h"
#include "host/score/records/tags.h"

namespace standin {

// A kind of detail of which an entry may have several.
inline constexpr u32 kArticulation = HostTag("edIM");

// In bytes: 12, times the tag's second character where that is a small number.
u32 SizeOfDetail(u32 tag);

// An entry by its place in a StandIn's score.
struct EntryPlace {
    i16 slot = 1;
    u16 measure = 1;
    u16 layer = 0;
    int index = 0;  // from 0
};

// Fails the test at its end when a frame is still on loan, an edit or a progress display is
// still open, or another document is current; then leaves the host as at the program's start.
class StandIn {
public:
    // Measures in 4/4 unless stated otherwise. Staff numbers differ from the slots.
    explicit StandIn(int staves = 1, int measures = 1, i16 beats = 4, i16 beatDuration = 1024);
    ~StandIn();
    StandIn(const StandIn&) = delete;
    StandIn& operator=(const StandIn&) = delete;

    Document& Score() { return *m_document; }
    u16 Staff(i16 slot) const;  // the staff's number
    FrameKey Key(i16 slot, u16 measure, u16 layer) const { return {Staff(slot), measure, layer}; }

    // Slots and measures count from 1, layers from 0.
    void Layer(i16 slot, u16 measure, u16 layer, std::string_view notation);
    std::string Layer(i16 slot, u16 measure, u16 layer) const;
    // The first layers of the first staff and measure; then everything is selected.
    void Write(std::initializer_list<std::string_view> notations);
    // A layer of every staff and measure.
    void LayerEverywhere(u16 layer, std::string_view notation);
    // Elapsed time and duration of each entry, such as "0+1024 1024+512".
    std::string Times(i16 slot, u16 measure, u16 layer) const;

    // Fails the test and returns a zeroed entry when there is none.
    EXENTRY Entry(EntryPlace place) const;
    u32 EntryNumber(EntryPlace place) const { return Entry(place).entryNumber; }

    // Attaches a detail with this content, followed by zeros; sizes are those of the tag.
    RecordKey Attach(EntryPlace place, u32 tag, std::string_view content);
    // The contents of the entry's details of a tag, without trailing zeros, joined by commas.
    std::string Attached(EntryPlace place, u32 tag) const;
    // A smart shape between two entries, with marks of this tag; returns its number.
    u16 Slur(EntryPlace from, EntryPlace to, u32 markTag = Tag::kShapeOnEntry);
    // An expression of a measure that belongs to an entry at this time; layer -1 = none in
    // particular; graceIndex 1 = of the first grace note there. Returns its record number.
    u16 Expression(i16 slot, u16 measure, i32 position, i16 layer, i16 graceIndex = 0);

    void SelectAll();
    void SelectNothing() { Score().selection.reset(); }
    // Both ends included; lastPosition kEndOfMeasure = through the end of the measure.
    void Select(i16 firstSlot, i16 firstMeasure, i32 firstPosition, i16 lastSlot, i16 lastMeasure,
                i32 lastPosition);

private:
    Document* m_document;
};

}  // namespace standin
