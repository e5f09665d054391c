// A time from the barline in duration units, exact through tuplets.
#pragma once

#include "shell/host/host_types.h"

namespace standin {

// Never negative. The fraction of a unit is exact up to a denominator of kMaxDenominator; a
// result that would need a larger one is rounded to 1 / kCoarse.
class TimePosition {
public:
    static constexpr i64 kMaxDenominator = i64{1} << 24U;
    static constexpr i64 kCoarse = i64{1} << 20U;

    constexpr TimePosition() = default;
    constexpr explicit TimePosition(i64 units) : m_whole{units} {}

    TimePosition operator+(TimePosition other) const;
    // Times a ratio with positive terms of at most kMaxDenominator.
    TimePosition Scaled(i64 numerator, i64 denominator) const;
    bool operator<(TimePosition other) const;

    // The whole units, and the remaining fraction of a unit.
    i64 Whole() const { return m_whole; }
    i64 Numerator() const { return m_numerator; }
    i64 Denominator() const { return m_denominator; }

    // The nearest whole duration unit, halves upward; clamped to 32 bits.
    i32 Rounded() const;

private:
    static TimePosition Make(i64 whole, i64 numerator, i64 denominator);

    i64 m_whole = 0;
    i64 m_numerator = 0;  // below the denominator
    i64 m_denominator = 1;
};

}  // namespace standin
