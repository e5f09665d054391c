// Pairs the ends of lines of one part in document order.
#pragma once

#include <map>
#include <set>
#include <utility>
#include <vector>

#include "host/readback/score_content.h"

namespace standin::readback {

// A number identifies lines that are open at once, whatever their time, voice or staff: an end
// belongs to the open end of its kind and number. Within a measure a stop may come before its
// start. If a number is started again while it is open, the pairing is unknown: all its ends are
// loose until as many have stopped as started.
class LinePairing {
public:
    // mayBeShort: the kinds of lines that may begin and end on one note. Of others, ends at one
    // time belong to lines of which the other end is missing.
    LinePairing(Score& score, std::set<u32> mayBeShort)
        : m_score{score}, m_mayBeShort{std::move(mayBeShort)} {}

    void Add(u32 end);
    void EndMeasure();
    void EndPart();

    // The starts of that kind without a stop so far.
    std::vector<u32> OpenStarts(u32 kind) const;

private:
    struct Open {
        std::vector<u32> ends;  // one, or several whose pairing is unknown
        int starts = 0;         // more than stops
        bool contested = false;
    };

    void Contest(Open& open, u32 end);
    void Close(Open& open);

    Score& m_score;
    std::set<u32> m_mayBeShort;
    std::map<std::pair<u32, u32>, Open> m_open;  // by kind and number
};

}  // namespace standin::readback
