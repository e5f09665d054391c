#include "host/musicxml/time_ratio.h"

#include <cstdlib>

namespace standin {

TimeRatio RatioOf(i64 notated, i64 actual) {
    constexpr int kLargest = 32;
    if (notated == actual) {
        return {};
    }
    for (int sum = 3; sum <= 2 * kLargest; ++sum) {
        for (int normal = 1; normal < sum; ++normal) {
            const TimeRatio ratio{sum - normal, normal};
            if (Fits(ratio, notated, actual)) {
                return ratio;
            }
        }
    }
    return {};
}

bool Fits(TimeRatio ratio, i64 notated, i64 actual) {
    return std::abs(notated * ratio.normal - actual * ratio.actual) < ratio.actual;
}

}  // namespace standin
