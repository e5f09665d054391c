#include "host/cli/selection.h"

#include <algorithm>
#include <cmath>

namespace standin::cli {

namespace {

// The position, in duration units from the barline, at which a beat (from 1) starts.
i32 StartOfBeat(const Document& document, int measure, double beat) {
    const double beatDuration = document.Measure(static_cast<u16>(measure)).beatDuration;
    return static_cast<i32>(std::lround((beat - 1) * beatDuration));
}

}  // namespace

std::variant<EREGION, std::string> SelectionIn(const Document& document,
                                               const SelectionOptions& options) {
    const int measures = document.MeasureCount();
    const int staves = static_cast<int>(document.StaffList(0).size());
    if (options.firstMeasure > measures) {
        return "the score has " + std::to_string(measures) + " measures";
    }
    if (options.firstStaff > staves) {
        return "the score has " + std::to_string(staves) + " staves";
    }
    const int lastMeasure = std::min(options.lastMeasure.value_or(measures), measures);
    const int lastStaff = std::min(options.lastStaff.value_or(staves), staves);
    EREGION region{};
    region.startSlot = static_cast<i16>(options.firstStaff);
    region.startMeasure = static_cast<i16>(options.firstMeasure);
    region.startPosition = StartOfBeat(document, options.firstMeasure, options.firstBeat);
    if (region.startPosition >= document.MeasureDuration(0, options.firstMeasure)) {
        return "measure " + std::to_string(options.firstMeasure) +
               " ends before the first beat asked for";
    }
    region.endSlot = static_cast<i16>(lastStaff);
    region.endMeasure = static_cast<i16>(lastMeasure);
    region.endPosition = kEndOfMeasure;
    if (options.lastBeat) {
        region.endPosition = StartOfBeat(document, lastMeasure, *options.lastBeat + 1) - 1;
    }
    if (region.startMeasure == region.endMeasure && region.startPosition > region.endPosition) {
        return std::string{"the selection ends before it starts"};
    }
    return region;
}

}  // namespace standin::cli
