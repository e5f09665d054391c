#include "host/score/time/time_position.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace standin {

TimePosition TimePosition::Make(i64 whole, i64 numerator, i64 denominator) {
    TimePosition made;
    made.m_whole = whole + numerator / denominator;
    numerator %= denominator;
    const i64 common = std::gcd(numerator, denominator);
    numerator /= common;
    denominator /= common;
    if (denominator > kMaxDenominator) {
        const double fraction = static_cast<double>(numerator) / static_cast<double>(denominator);
        return Make(made.m_whole, std::llround(fraction * static_cast<double>(kCoarse)), kCoarse);
    }
    made.m_numerator = numerator;
    made.m_denominator = denominator;
    return made;
}

TimePosition TimePosition::operator+(TimePosition other) const {
    const i64 common = std::lcm(m_denominator, other.m_denominator);
    return Make(
        m_whole + other.m_whole,
        m_numerator * (common / m_denominator) + other.m_numerator * (common / other.m_denominator),
        common);
}

TimePosition TimePosition::Scaled(i64 numerator, i64 denominator) const {
    const i64 scaled = m_whole * numerator;
    return Make(scaled / denominator, scaled % denominator, denominator) +
           Make(0, m_numerator * numerator, m_denominator * denominator);
}

bool TimePosition::operator<(TimePosition other) const {
    if (m_whole != other.m_whole) {
        return m_whole < other.m_whole;
    }
    return m_numerator * other.m_denominator < other.m_numerator * m_denominator;
}

i32 TimePosition::Rounded() const {
    const i64 rounded = m_whole + (2 * m_numerator >= m_denominator ? 1 : 0);
    return static_cast<i32>(std::min<i64>(rounded, std::numeric_limits<i32>::max()));
}

}  // namespace standin
