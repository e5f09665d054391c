// Pairs the ends of lines of one part in the order in which they stand in its text.
#pragma once

#include <map>
#include <utility>
#include <vector>

#include "host/readback/score_content.h"

namespace standin::readback {

// A number tells lines apart that are open at once, whatever their time, voice or staff: an end
// belongs to the open end of its kind and number. A stop may stand before its start within a
// measure. Where a number is taken again while it is open, nothing says for sure which ends belong
// together: all ends are loose until as many have stopped as were started.
class LinePairing {
public:
    explicit LinePairing(Score& score) : m_score{score} {}

    void Add(u32 end);
    void EndMeasure();
    void EndPart();

    // The starts of that kind that wait for their stops.
    std::vector<u32> OpenStarts(u32 kind) const;

private:
    struct Open {
        std::vector<u32> ends;  // one, or several of which nobody knows who belongs to whom
        int starts = 0;         // more than stops
        bool contested = false;
    };

    void Contest(Open& open, u32 end);
    void Close(Open& open);

    Score& m_score;
    std::map<std::pair<u32, u32>, Open> m_open;  // by kind and number
};

}  // namespace standin::readback
