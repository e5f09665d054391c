#include "host/readback/exact_time.h"

#include <cmath>
#include <numeric>

namespace standin::readback {

namespace {
constexpr i64 kLargest = i64{1} << 30U;
constexpr double kUnitsOfQuarter = 1024.0;
}  // namespace

ExactTime::ExactTime(i64 numerator, i64 denominator) noexcept : m_num{0}, m_den{0} {
    const i64 divisor = std::gcd(numerator, denominator);
    if (denominator == 0 || divisor == 0) {
        return;
    }
    const i64 sign = denominator < 0 ? -1 : 1;
    const i64 num = sign * (numerator / divisor);
    const i64 den = sign * (denominator / divisor);
    if (num < kLargest && num > -kLargest && den < kLargest) {
        m_num = num;
        m_den = den;
    }
}

ExactTime ExactTime::OfDecimal(std::string_view text) noexcept {
    constexpr std::string_view kSpace = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kSpace);
    if (first == std::string_view::npos) {
        return {};
    }
    text = text.substr(first, text.find_last_not_of(kSpace) + 1 - first);
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+') {
        text.remove_prefix(1);
    }
    i64 digits = 0;
    i64 scale = 1;
    bool inFraction = false;
    for (const char sign : text) {
        if (sign == '.' && !inFraction) {
            inFraction = true;
        } else if (sign >= '0' && sign <= '9' && digits < kLargest && scale < kLargest) {
            digits = digits * 10 + (sign - '0');
            scale *= inFraction ? 10 : 1;
        } else {
            return {};
        }
    }
    return {negative ? -digits : digits, scale};
}

double ExactTime::AsDouble() const noexcept {
    return m_den == 0 ? 0.0 : static_cast<double>(m_num) / static_cast<double>(m_den);
}

i64 ExactTime::InUnits() const noexcept {
    return std::llround(AsDouble() * kUnitsOfQuarter);
}

ExactTime ExactTime::operator+(ExactTime other) const noexcept {
    return {m_num * other.m_den + other.m_num * m_den, m_den * other.m_den};
}

ExactTime ExactTime::operator-(ExactTime other) const noexcept {
    return {m_num * other.m_den - other.m_num * m_den, m_den * other.m_den};
}

ExactTime ExactTime::operator/(ExactTime other) const noexcept {
    return {m_num * other.m_den, m_den * other.m_num};
}

}  // namespace standin::readback
