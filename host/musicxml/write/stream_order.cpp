#include "host/musicxml/write/stream_order.h"

#include <algorithm>
#include <cstddef>

namespace standin {
namespace {

// Row a, column b: whether a chain of links leads from a to b.
using Reach = std::vector<std::vector<bool>>;

Reach ReachOf(std::size_t count, const std::vector<StreamLink>& links) {
    Reach reach(count, std::vector<bool>(count));
    for (const StreamLink& link : links) {
        reach[link.first][link.second] = true;
    }
    for (std::size_t via = 0; via < count; ++via) {
        for (std::size_t from = 0; from < count; ++from) {
            for (std::size_t to = 0; to < count && reach[from][via]; ++to) {
                reach[from][to] = reach[from][to] || reach[via][to];
            }
        }
    }
    return reach;
}

}  // namespace

std::vector<std::size_t> OrderOfStreams(std::size_t count, std::vector<StreamLink> links) {
    const Reach all = ReachOf(count, links);
    std::erase_if(links, [&all](const StreamLink& link) {
        return link.canMove && all[link.second][link.first];
    });
    const Reach reach = ReachOf(count, links);
    std::vector<std::size_t> order;
    std::vector<bool> placed(count);
    while (order.size() < count) {
        std::size_t best = count;
        std::ptrdiff_t fewest = 0;
        for (std::size_t stream = 0; stream < count; ++stream) {
            bool mayBeNext = !placed[stream];
            for (std::size_t other = 0; other < count && mayBeNext; ++other) {
                mayBeNext = placed[other] || !reach[other][stream] || reach[stream][other];
            }
            if (!mayBeNext) {
                continue;
            }
            const auto waiting = std::ranges::count_if(links, [&](const StreamLink& link) {
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
