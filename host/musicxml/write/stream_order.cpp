#include "host/musicxml/write/stream_order.h"

#include <algorithm>

namespace standin {

std::vector<std::size_t> OrderOfStreams(std::size_t count, const std::vector<StreamLink>& links) {
    std::vector<std::size_t> order;
    std::vector<bool> placed(count);
    while (order.size() < count) {
        std::size_t best = count;
        std::ptrdiff_t fewest = 0;
        for (std::size_t stream = 0; stream < count; ++stream) {
            if (placed[stream]) {
                continue;
            }
            const auto waiting =
                std::count_if(links.begin(), links.end(), [&](const StreamLink& link) {
                    return link.second == stream && link.first != stream && !placed[link.first];
                });
            if (best == count || waiting < fewest) {
                best = stream;
                fewest = waiting;
            }
        }
        placed[best] = true;
        order.push_back(best);
    }
    return order;
}

}  // namespace standin
