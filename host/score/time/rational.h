// Exact musical time. Unit: a quarter note.
#pragma once

#include <algorithm>
#include <numeric>

#include "shell/host/host_types.h"

namespace standin {

// A fraction in lowest terms with a positive denominator. A sum that would leave the range
// in which every operation is exact gives the invalid value, which stays invalid.
struct Rational {
    i64 num = 0;
    i64 den = 1;  // 0 = invalid

    static constexpr i64 kLargest = i64{1} << 40U;

    static constexpr Rational Invalid() noexcept { return {0, 0}; }
    static constexpr Rational Of(i64 numerator, i64 denominator) noexcept {
        if (denominator <= 0) {
            return Invalid();
        }
        const i64 divisor = std::gcd(numerator, denominator);
        const Rational result{numerator / divisor, denominator / divisor};
        const bool fits = result.num < kLargest && result.num > -kLargest && result.den < kLargest;
        return fits ? result : Invalid();
    }
    // From the host's duration units.
    static constexpr Rational OfUnits(i64 units) noexcept { return Of(units, kQuarterNote); }

    constexpr bool IsValid() const noexcept { return den != 0; }
    // In the host's duration units.
    constexpr bool IsWholeUnits() const noexcept { return den != 0 && kQuarterNote % den == 0; }
    constexpr bool IsZero() const noexcept { return num == 0 && den != 0; }
    constexpr bool operator==(const Rational&) const = default;
};

constexpr Rational operator+(Rational a, Rational b) noexcept {
    if (a.den == b.den) {
        return a.den == 0 ? a : Rational::Of(a.num + b.num, a.den);
    }
    if (!a.IsValid() || !b.IsValid()) {
        return Rational::Invalid();
    }
    const i64 shared = std::gcd(a.den, b.den);
    const i64 left = b.den / shared;
    const i64 right = a.den / shared;
    constexpr i64 kFactor = i64{1} << 20U;
    const bool exact = left < kFactor && right < kFactor && a.den / shared < kFactor;
    return exact ? Rational::Of(a.num * left + b.num * right, a.den * left) : Rational::Invalid();
}

constexpr Rational operator-(Rational a) noexcept {
    return {-a.num, a.den};
}
constexpr Rational operator-(Rational a, Rational b) noexcept {
    return a + -b;
}
constexpr Rational operator*(Rational a, Rational b) noexcept {
    if (!a.IsValid() || !b.IsValid()) {
        return Rational::Invalid();
    }
    const i64 first = std::max<i64>(std::gcd(a.num, b.den), 1);
    const i64 second = std::max<i64>(std::gcd(b.num, a.den), 1);
    const auto product = [](i64 x, i64 y) {
        const bool fits = y == 0 || (x < 0 ? -x : x) <= Rational::kLargest / (y < 0 ? -y : y);
        return fits ? x * y : Rational::kLargest;
    };
    return Rational::Of(product(a.num / first, b.num / second),
                        product(a.den / second, b.den / first));
}
// Invalid when b is not positive.
constexpr Rational operator/(Rational a, Rational b) noexcept {
    return a * (b.num > 0 ? Rational{b.den, b.num} : Rational::Invalid());
}
constexpr bool operator<(Rational a, Rational b) noexcept {
    return (a - b).num < 0;
}

// The nearest whole number of the host's duration units; halves round up.
constexpr i64 RoundToUnits(Rational time) noexcept {
    if (!time.IsValid()) {
        return 0;
    }
    const i64 doubled = time.num * kQuarterNote * 2 + time.den;
    const i64 divisor = time.den * 2;
    const i64 quotient = doubled / divisor;
    return doubled < 0 && quotient * divisor != doubled ? quotient - 1 : quotient;
}

}  // namespace standin
