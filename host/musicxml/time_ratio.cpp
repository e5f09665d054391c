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
            const int notes = sum - normal;
            if (std::abs(notated * normal - actual * notes) < notes) {
                return {notes, normal};
            }
        }
    }
    return {};
}

}  // namespace standin
