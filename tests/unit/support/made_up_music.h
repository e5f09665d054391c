// Random music, before it becomes MusicXML.
#pragma once

#include <string>
#include <vector>

#include "tests/unit/support/made_up_chances.h"
#include "tests/unit/support/made_up_rhythm.h"

namespace standin {

struct MadeUpPitch {
    std::string step;
    int alter = 0;
    int octave = 4;
    bool tieFrom = false;  // the one before
    bool tieTo = false;    // the next
};

// A chord, a note, a rest or a grace note.
struct MadeUpEvent {
    std::vector<MadeUpPitch> pitches = {};  // none: a rest
    MadeUpValue value = {};
    int start = 0;    // from the barline
    int measure = 0;  // from 0
    int staff = 1;
    int voice = 1;
    bool grace = false;
    bool leftOut = false;
    bool silent = false;                       // its pitches are left out
    std::vector<std::string> notations = {};   // of the first note
    std::vector<std::string> ornaments = {};   // lyrics, behind the notations
    std::vector<std::string> directions = {};  // before it

    bool IsNote() const { return !pitches.empty() && !silent; }
    bool CarriesLines() const { return IsNote() && !leftOut; }
};

struct MadeUpStream {
    int voice = 1;
    int staff = 1;    // its own
    int silence = 0;  // before its first event
    bool leftOut = false;
    std::vector<MadeUpEvent> events;

    int End() const {
        int end = silence;
        for (const MadeUpEvent& event : events) {
            end += event.grace ? 0 : event.value.length;
        }
        return end;
    }
};

struct MadeUpMeasure {
    int length = 0;
    std::vector<MadeUpStream> streams;
};

struct MadeUpShape {
    int measures = 1;
    int beats = 4;        // quarters
    bool upbeat = false;  // the first measure has one beat
    bool allBracketed = false;
};

struct MadeUpPart {
    int staves = 1;
    std::vector<MadeUpMeasure> measures;

    // In the order of the text, also those that are left out.
    std::vector<MadeUpEvent*> Events();
};

// A part without ties, slurs and directions.
MadeUpPart MakeUpPart(const MadeUpShape& shape, MadeUpChances& chances);

// <name type="..." number="..."/>
std::string NumberedElement(const std::string& name, const std::string& type, int number);

}  // namespace standin
