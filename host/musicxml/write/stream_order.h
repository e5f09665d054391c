// The order in which the streams of a measure are written.
#pragma once

#include <cstddef>
#include <vector>

namespace standin {

// A line that starts in one stream and stops in another.
struct StreamLink {
    std::size_t first = 0;
    std::size_t second = 0;
    bool canMove = false;  // its stop is in a direction, which may go to another stream
};

// Orders the streams from 0 to count - 1 so that lines start before they stop. If lines run both
// ways, those that can move do not count, and each step picks the stream with the fewest
// exceptions. Otherwise streams keep their order.
std::vector<std::size_t> OrderOfStreams(std::size_t count, std::vector<StreamLink> links);

}  // namespace standin
