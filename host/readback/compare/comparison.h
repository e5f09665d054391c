// Shared data of a comparison.
#pragma once

#include <map>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

#include "host/readback/compare/compare.h"
#include "host/readback/compare/findings.h"
#include "host/texts/texts.h"

namespace standin::readback {

// One of the two scores, with numbers for notes that are equal in pitch, form and duration.
struct Side {
    const Score& score;
    std::vector<u32> noteIds;
    std::vector<bool> isCleared;  // by chord
};

struct Comparison {
    Side before;
    Side after;
    const Texts& texts;
    Findings& findings;
    bool merged = false;
};

// Notes at one time on one staff; grace notes separate from others.
using GroupKey = std::pair<Place, bool>;
inline GroupKey GroupOf(const Chord& chord) {
    return {chord.place, chord.grace != 0};
}

using Indices = std::vector<u32>;

// The chords of one group; both lists in the order of the file.
struct Group {
    Indices before;
    Indices after;
};

// Whether the chord has an equal note.
bool HasNote(const Side& side, u32 chord, u32 noteId);

// Whether all notes of the one chord are in the other.
bool HasNotesOf(const Side& whole, u32 chord, const Side& part, u32 of);

// "C#4 quarter"; of a chord its first note.
const std::string& WordsForNote(const Comparison& comparison, const Side& side, u32 note);

// Adds that something is lost, or gained.
void AddMissing(const Comparison& comparison, u32 part, const Place& place, Difference::Kind kind,
                const std::string& words);

void CompareFacts(const Comparison& comparison);   // all but lines, whatever the chords
void CompareChords(const Comparison& comparison);  // after a merge
void CompareRests(const Comparison& comparison, const Group& group);   // likewise
void CompareGraces(const Comparison& comparison, const Group& group);  // likewise, of grace notes
void CompareLines(const Comparison& comparison);
void CompareStreams(const Comparison& comparison);  // after a merge
void CompareItems(const Comparison& comparison);

}  // namespace standin::readback
