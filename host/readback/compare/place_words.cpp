#include "host/readback/compare/place_words.h"

#include <cmath>
#include <cstdlib>

#include "host/texts/texts.h"

namespace standin::readback {

namespace {

std::string Decimal(double value) {
    constexpr int kScale = 1000;
    const long long scaled = std::llround(value * kScale);
    std::string text = std::to_string(scaled / kScale);
    std::string decimals = std::to_string(kScale + std::abs(scaled % kScale)).substr(1);
    decimals.erase(decimals.find_last_not_of('0') + 1);
    return decimals.empty() ? text : text + '.' + decimals;
}

}  // namespace

std::string MeasureWords(const std::string& number) {
    return Say(Text::kMeasureShort, {number});
}

std::string BeatWords(double beat) {
    return Say(Text::kOneBeat, {Decimal(beat)});
}

}  // namespace standin::readback
