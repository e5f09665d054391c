#include "host/cli/commands/selection.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "host/cli/usage/spelling.h"
#include "host/report/places.h"

namespace standin::cli {

namespace {

// The position, in duration units from the barline, at which a beat (from 1) starts.
i32 StartOfBeat(const Document& document, int measure, double beat) {
    const double beatDuration = document.Measure(static_cast<u16>(measure)).beatDuration;
    return static_cast<i32>(std::lround((beat - 1) * beatDuration));
}

// Either the result or the reason why there is none.
template <typename Value>
using Found = std::variant<Value, std::string>;

// The position, from 1, of the measure with that name, "#5" or a printed number.
Found<u16> PlaceOfMeasure(const Document& document, const std::string& name) {
    const u16 count = document.MeasureCount();
    if (name.front() == '#') {
        u16 place = 0;
        const char* end = name.data() + name.size();
        const auto [last, error] = std::from_chars(name.data() + 1, end, place);
        const bool isPlace = error == std::errc{} && last == end && place >= 1 && place <= count;
        return isPlace ? Found<u16>{place} : Say(Text::kNoSuchPlace, {name, std::to_string(count)});
    }
    for (u16 measure = 1; measure <= count; ++measure) {
        if (PrintedNumber(document, measure) == name) {
            return measure;
        }
    }
    return Say(Text::kNoSuchMeasure,
               {name, PrintedNumber(document, 1), PrintedNumber(document, count)});
}

// Sets the slots of the region; returns the reason if there are none.
std::string SelectStaves(const Document& document, const std::vector<ScorePart>& parts,
                         const SelectionOptions& options, EREGION& region) {
    const int count = static_cast<int>(document.StaffList(0).size());
    if (options.part.empty()) {
        region.startSlot = static_cast<i16>(options.firstStaff);
        region.endSlot = static_cast<i16>(std::min(options.lastStaff.value_or(count), count));
        return options.firstStaff <= count
                   ? std::string{}
                   : Say(Text::kNoSuchStaff,
                         {std::to_string(options.firstStaff), std::to_string(count)});
    }
    std::vector<std::string> names;
    int first = 1;
    for (const ScorePart& part : parts) {
        const int staves = static_cast<int>(part.staves.size());
        if (part.name == options.part) {
            region.startSlot = static_cast<i16>(first);
            region.endSlot = static_cast<i16>(first + staves - 1);
            return {};
        }
        names.push_back(part.name);
        first += staves;
    }
    const std::string problem = Say(Text::kNoSuchPart, {options.part});
    const std::string closest = ClosestWord(options.part, names);
    return closest.empty() ? problem : Say(Text::kDidYouMean, {problem, closest});
}

// Sets the measures of the region; returns the reason if there are none.
std::string SelectMeasures(const Document& document, const MeasureStretch& stretch,
                           EREGION& region) {
    const Found<u16> first = PlaceOfMeasure(document, stretch.first);
    const Found<u16> last =
        stretch.last ? PlaceOfMeasure(document, *stretch.last) : document.MeasureCount();
    for (const Found<u16>* found : {&first, &last}) {
        if (const auto* problem = std::get_if<std::string>(found)) {
            return *problem;
        }
    }
    region.startMeasure = static_cast<i16>(std::get<u16>(first));
    region.endMeasure = static_cast<i16>(std::get<u16>(last));
    return region.startMeasure <= region.endMeasure ? std::string{}
                                                    : std::string{Say(Text::kSelectionBackwards)};
}

// Narrows the first and the last region to the beats; returns the reason if nothing is left.
std::string SelectBeats(const Document& document, const SelectionOptions& options,
                        std::vector<EREGION>& regions) {
    EREGION& first = regions.front();
    EREGION& last = regions.back();
    first.startPosition = StartOfBeat(document, first.startMeasure, options.firstBeat);
    if (first.startPosition >= document.MeasureDuration(0, first.startMeasure)) {
        return Say(Text::kBeatBehindMeasure,
                   {PrintedNumber(document, static_cast<u16>(first.startMeasure))});
    }
    if (options.lastBeat) {
        last.endPosition = StartOfBeat(document, last.endMeasure, *options.lastBeat + 1) - 1;
    }
    const bool isBackwards =
        last.startMeasure == last.endMeasure && last.startPosition > last.endPosition;
    return isBackwards ? std::string{Say(Text::kSelectionBackwards)} : std::string{};
}

}  // namespace

std::variant<std::vector<EREGION>, std::string> SelectionsIn(const Document& document,
                                                             const std::vector<ScorePart>& parts,
                                                             const SelectionOptions& options) {
    EREGION region{};
    region.startMeasure = 1;
    region.endMeasure = static_cast<i16>(document.MeasureCount());
    region.endPosition = kEndOfMeasure;
    std::string problem = SelectStaves(document, parts, options, region);
    std::vector<EREGION> regions;
    for (const MeasureStretch& stretch : options.measures) {
        if (problem.empty()) {
            regions.push_back(region);
            problem = SelectMeasures(document, stretch, regions.back());
        }
    }
    if (options.measures.empty()) {
        regions.push_back(region);
    }
    if (problem.empty()) {
        problem = SelectBeats(document, options, regions);
    }
    if (!problem.empty()) {
        return problem;
    }
    return regions;
}

}  // namespace standin::cli
