// Musical time as an exact fraction. Unit: a quarter note.
#pragma once

#include <compare>
#include <string_view>

#include "shell/host/host_types.h"

namespace standin::readback {

// Always in lowest terms, with a positive denominator. A value with more than 30 bits in numerator
// or denominator becomes invalid, and stays so.
class ExactTime {
public:
    constexpr ExactTime() = default;
    ExactTime(i64 numerator, i64 denominator) noexcept;

    // A decimal number such as "-12.5"; zero for other text.
    static ExactTime OfDecimal(std::string_view text) noexcept;

    bool IsValid() const noexcept { return m_den != 0; }
    bool IsZero() const noexcept { return m_num == 0; }
    double AsDouble() const noexcept;
    // The nearest whole number of 1024ths of a quarter note.
    i64 InUnits() const noexcept;

    ExactTime operator+(ExactTime other) const noexcept;
    ExactTime operator-(ExactTime other) const noexcept;
    // Invalid if the other is zero.
    ExactTime operator/(ExactTime other) const noexcept;

    bool operator==(const ExactTime&) const noexcept = default;
    std::strong_ordering operator<=>(const ExactTime& other) const noexcept {
        return m_num * other.m_den <=> other.m_num * m_den;
    }

private:
    i64 m_num = 0;
    i64 m_den = 1;  // 0 = invalid
};

}  // namespace standin::readback
