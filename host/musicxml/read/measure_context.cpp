#include "host/musicxml/read/measure_context.h"

#include <algorithm>
#include <string_view>

#include "host/musicxml/xml/xml_node.h"

namespace standin {
namespace {

constexpr i32 kWholeNote = 4 * kQuarterNote;
constexpr int kMaxSharps = 7;
constexpr i32 kMaxBeats = 1000;

// "3+2+2" is 7 beats; 0 if it is not such a sum.
i32 BeatsOf(std::string_view text) {
    i32 total = 0;
    while (true) {
        const std::size_t plus = text.find('+');
        const auto beats = IntegerOf(text.substr(0, plus));
        if (!beats || *beats <= 0 || *beats > kMaxBeats) {
            return 0;
        }
        total += *beats;
        if (plus == std::string_view::npos) {
            return total;
        }
        text.remove_prefix(plus + 1);
    }
}

}  // namespace

Meter MeterOf(pugi::xml_node time, Meter fallback) {
    i32 length = 0;
    i32 unit = kWholeNote;
    i32 beats = 0;
    for (pugi::xml_node node = time.child("beats"); node; node = node.next_sibling("beats")) {
        const i32 count = BeatsOf(node.child_value());
        const auto type = IntegerOf(node.next_sibling("beat-type").child_value());
        if (count == 0 || !type || *type <= 0 || *type > kWholeNote) {
            return fallback;
        }
        beats = count;
        unit = std::min(unit, kWholeNote / *type);
        length += count * (kWholeNote / *type);
    }
    if (beats == 0) {
        return fallback;
    }
    const bool isPlain = length == beats * unit;
    if (isPlain && unit < kQuarterNote && beats % 3 == 0) {
        unit *= 3;
    }
    return {static_cast<i16>(length / unit), static_cast<i16>(unit)};
}

Problem ReadAttributes(pugi::xml_node attributes, MeasureContext& context) {
    if (const pugi::xml_node divisions = attributes.child("divisions")) {
        const auto value = DecimalOf(divisions.child_value());
        if (!value || value->num <= 0) {
            return {Text::kBadDivisions, OffsetOf(divisions)};
        }
        context.divisions = *value;
    }
    if (const pugi::xml_node fifths = attributes.child("key").child("fifths")) {
        context.fifths =
            std::clamp(IntegerOf(fifths.child_value()).value_or(0), -kMaxSharps, kMaxSharps);
    } else if (attributes.child("key")) {
        context.fifths = 0;
    }
    if (const pugi::xml_node time = attributes.child("time")) {
        context.meter = MeterOf(time, context.meter);
    }
    return {};
}

}  // namespace standin
