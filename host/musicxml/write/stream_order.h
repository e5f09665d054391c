// The order in which the streams of a measure are written.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace standin {

// A line that starts in one stream and stops in another.
using StreamLink = std::pair<std::size_t, std::size_t>;

// The streams from 0 to count - 1, put so that lines start before they stop; where lines run both
// ways, so that as few as can be seen at each step do not. Else streams keep their order.
std::vector<std::size_t> OrderOfStreams(std::size_t count, const std::vector<StreamLink>& links);

}  // namespace standin
