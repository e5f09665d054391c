// The order in which the streams of a measure are written.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace standin {

// A line that starts in one stream and stops in another.
using StreamLink = std::pair<std::size_t, std::size_t>;

// Orders the streams from 0 to count - 1 so that lines start before they stop. If lines run both
// ways, each step picks the stream with the fewest exceptions. Otherwise streams keep their order.
std::vector<std::size_t> OrderOfStreams(std::size_t count, const std::vector<StreamLink>& links);

}  // namespace standin
