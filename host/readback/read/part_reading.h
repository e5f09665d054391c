// Reads one <part>: its notes, directions and other elements, with their places.
#pragma once

#include <map>
#include <pugixml.hpp>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include "host/readback/read/known_measures.h"
#include "host/readback/read/line_pairing.h"
#include "host/readback/read/note_reading.h"

namespace standin::readback {

class PartReading {
public:
    // Reads into the last part of the score, whose staves are known.
    // known: measures that need not be read again; may be null.
    PartReading(Score& score, ElementTexts& elements, const KnownMeasures* known);

    // False if the times of a measure cannot be computed exactly, or if a known measure means
    // something else here; it is then the last one.
    bool Read(pugi::xml_node part);

private:
    // An item in a stream of notes: readers use its place in the text.
    struct StreamItem {
        u32 item = 0;
        u32 next = 0;  // chord, if there is one in the measure
        u32 voice = kNone;
        bool namesStaff = false;
    };

    void ReadMeasure(pugi::xml_node measure);
    void Repeat(const MeasureContent& known);
    MeasureRanges Ends() const;
    void ReadNote(pugi::xml_node note);
    ExactTime DurationOfNote() const;
    ExactTime LengthOfNone();
    void BeginChord(u32 staff, ExactTime duration);
    void Move(ExactTime by);
    void ReadAttributes(pugi::xml_node attributes);
    void ReadItem(pugi::xml_node node);
    void ReadDirectionLines(pugi::xml_node direction, const Place& place);
    void PairNewEnds();
    void PlaceInStreams(u32 firstChord);
    void AddItem(const Place& place, u32 text, bool closesMeasure = false);
    void NumberGraceNotes(u32 firstChord);
    void SumVoices(u32 firstChord);
    ExactTime DurationOf(pugi::xml_node node) const;
    u32 StaffOf(pugi::xml_node node) const;
    u32 StaffOfScore(u32 staffOfPart) const;
    Place Here(u32 staff) const { return {staff, m_measure, m_cursor}; }
    MeasureContent& Measure() { return m_score.parts[m_part].measures.back(); }

    Score& m_score;
    ElementTexts& m_elements;
    Texts& m_texts;
    NoteChildren m_note;  // the one being read
    NoteReading m_notes;
    LinePairing m_lines;
    const KnownMeasures* m_known;
    const u32 m_part;
    const u32 m_tuplet;  // the element's name
    u32 m_nextEnd;       // not yet paired
    u32 m_measure = 0;
    bool m_isExact = true;  // all times so far, and all that was known
    ExactTime m_divisions{1, 1};
    ExactTime m_beat{1, 1};
    ExactTime m_cursor;
    ExactTime m_chordOnset;
    ExactTime m_uncounted;               // how far the cursor is ahead of the file's count
    std::vector<StreamItem> m_unplaced;  // of the measure
    std::set<u32> m_broken;              // tuplets by their starts
};

// The length of a beat of the time signature, in quarter notes; the fallback if it is unknown.
ExactTime BeatOf(pugi::xml_node time, ExactTime fallback);

}  // namespace standin::readback
