// Pairs the ends of lines of one part in document order.
#pragma once

#include <map>
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
    explicit LinePairing(Score& score) : m_score{score} {}

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
    std::map<std::pair<u32, u32>, Open> m_open;  // by kind and number
};

}  // namespace standin::readback
