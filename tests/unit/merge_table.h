// Merges of two layers of a measure, written one a line.
#pragma once

#include <gtest/gtest.h>

#include "tests/unit/plugin_driver.h"

namespace standin {

struct MergeCase {
    const char* name;
    const char* destination;
    const char* source;
    const char* destinationAfterwards;
    const char* sourceAfterwards;
    i32 firstPosition = 0;  // of the selection
    i32 lastPosition = kEndOfMeasure;
};

inline void ExpectMerge(const MergeCase& c) {
    SCOPED_TRACE(c.name);
    StandIn host;
    host.Layer(1, 1, 0, c.destination);
    host.Layer(1, 1, 1, c.source);
    host.Select(1, 1, c.firstPosition, 1, 1, c.lastPosition);
    const auto music = Music(host.Score());
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 1, 0), c.destinationAfterwards);
    EXPECT_EQ(host.Layer(1, 1, 1), c.sourceAfterwards);
    EXPECT_EQ(Music(host.Score()), music);
    EXPECT_TRUE(App().alerts.empty());
    EXPECT_EQ(App().calls.flagsOutOfStep, 0U);
}

}  // namespace standin
