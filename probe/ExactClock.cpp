#include "probe/ExactClock.h"

namespace probe {

namespace {

constexpr long double kTiny = 1e-6L;

}  // namespace

void ExactClock::OpenTuplet(const EDTTuplet2005& tuplet) {
    const long double written =
        static_cast<long double>(tuplet.symbolicCount) * tuplet.symbolicUnitDuration;
    const long double played =
        static_cast<long double>(tuplet.referenceCount) * tuplet.referenceUnitDuration;
    if (written > 0 && played > 0) {
        m_tuplets.push_back({written, played / written});
    }
}

void ExactClock::Advance(i32 duration) {
    long double time = duration;
    for (const Tuplet& tuplet : m_tuplets) {
        time *= tuplet.factor;
    }
    m_time += time;
    long double filled = duration;
    while (!m_tuplets.empty()) {
        Tuplet& innermost = m_tuplets.back();
        innermost.filled += filled;
        if (innermost.filled < innermost.written - kTiny) {
            return;
        }
        filled = innermost.filled * innermost.factor;
        m_tuplets.pop_back();
    }
}

ExactClock ExactClock::Launch() const {
    ExactClock clock;
    clock.m_time = m_time;
    return clock;
}

}  // namespace probe
