// The brackets of tuplets in one voice of a measure.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/musicxml/fragments.h"
#include "host/musicxml/note_details.h"
#include "host/score/time/entry_times.h"
#include "host/score/time/rational.h"

namespace standin {

// An entry of the voice, on any of its staves.
struct BracketPlace {
    Rational start{};
    Rational end{};
    bool isWritten = true;      // false: a gap
    bool isLeftBehind = false;  // a hidden rest where music was
    bool isAsRead = false;      // where the file has it
    std::string brackets{};     // the result: its <tuplet> elements in the order to write
};

// A tuplet on record.
struct BracketTuplet {
    std::size_t first = 0;  // of the places; all of one staff
    std::size_t last = 0;
    int outer = -1;  // the place among the tuplets of the one around it
    TupletText text{};
    std::size_t stream = 0;  // of the voice; in one stream, nothing sounds at the same time
};

// Adds those of a frame. indices: of its entries that have places, in order, all of voice 1 or all
// of voice 2.
void AddBracketTuplets(const std::vector<EXENTRY>& entries, const RecordStore& records,
                       const std::vector<std::size_t>& indices,
                       std::vector<BracketTuplet>& tuplets);

// A bracket starts at the first written entry of its tuplet, on any staff, stops at the last, and
// has a number that no outer bracket has. Tuplets of a stream that take the same time are one. A
// bracket without one of its ends is left out, unless mayStandAlone says that the other end is in
// another measure or never existed. Around rests left behind it is not shown.
void PlaceBrackets(
    std::vector<BracketPlace>& places, const std::vector<BracketTuplet>& tuplets,
    const Fragments& fragments,
    const std::function<bool(const BracketPlace&, const TupletText&)>& mayStandAlone);

}  // namespace standin
