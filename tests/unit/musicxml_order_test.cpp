// The order in which the streams of a measure are written.
#include <gtest/gtest.h>

#include "host/musicxml/write/stream_order.h"

namespace standin {
namespace {

const struct {
    const char* name;
    std::size_t count;
    std::vector<StreamLink> links;
    std::vector<std::size_t> order;
} kOrders[] = {
    {"AsTheyCome", 3, {}, {0, 1, 2}},
    {"StartsFirst", 3, {{2, 0}, {0, 1}}, {2, 0, 1}},
    {"BothWays", 2, {{0, 1}, {1, 0}}, {0, 1}},
    {"MostOneWay", 2, {{0, 1}, {1, 0}, {1, 0}}, {1, 0}},
    {"DirectionsGiveWay", 2, {{0, 1, true}, {0, 1, true}, {1, 0}}, {1, 0}},
    {"DirectionsCountElsewhere", 3, {{0, 1, true}, {1, 0}, {2, 0, true}}, {1, 2, 0}},
    {"BehindThoseThatRunBothWays", 3, {{1, 2}, {2, 1}, {1, 0}}, {1, 2, 0}},
};

TEST(Streams, AreOrderedSoThatLinesStartBeforeTheyStop) {
    for (const auto& c : kOrders) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(OrderOfStreams(c.count, c.links), c.order);
    }
}

}  // namespace
}  // namespace standin
