#include "host/desktop/grid/selection_text.h"

#include <algorithm>

#include "host/report/places.h"
#include "host/texts/texts.h"
#include "platform/text.h"

namespace standin::desktop {

namespace {

std::string StaffName(const Document& document, i16 slot, u16 list) {
    const std::u16string name = document.AutoNumberedName(document.StaffInSlot(slot, list));
    return name.empty() ? Say(Text::kStaffOfScore, {std::to_string(slot)}) : platform::Utf8Of(name);
}

// The beat, from 1, of a position in a measure.
std::string BeatOf(const Document& document, u16 staff, i16 measure, i32 position) {
    const i32 beat = document.Measure(static_cast<u16>(measure)).beatDuration;
    const i32 last = document.MeasureDuration(staff, measure) - 1;
    return std::to_string(std::min(position, last) / std::max(beat, 1) + 1);
}

std::string Measures(const Document& document, const EREGION& region) {
    const std::string first = PrintedNumber(document, static_cast<u16>(region.startMeasure));
    const std::string last = PrintedNumber(document, static_cast<u16>(region.endMeasure));
    const bool isOne = region.startMeasure == region.endMeasure;
    if (region.startPosition == 0 && region.endPosition == kEndOfMeasure) {
        return isOne ? Say(Text::kSelectedMeasure, {first})
                     : Say(Text::kSelectedMeasures, {first, last});
    }
    const u16 staff = document.StaffInSlot(region.startSlot, region.startStaffList);
    const std::string firstBeat =
        BeatOf(document, staff, region.startMeasure, region.startPosition);
    const std::string lastBeat = BeatOf(document, staff, region.endMeasure, region.endPosition);
    if (!isOne) {
        return Say(Text::kSelectedFromTo, {first, firstBeat, last, lastBeat});
    }
    return firstBeat == lastBeat ? Say(Text::kSelectedBeat, {first, firstBeat})
                                 : Say(Text::kSelectedBeats, {first, firstBeat, lastBeat});
}

}  // namespace

std::string SelectionText(const Document& document) {
    if (!document.selection) {
        return Say(Text::kNothingSelected, {});
    }
    const EREGION& region = *document.selection;
    const std::string first = StaffName(document, region.startSlot, region.startStaffList);
    const std::string measures = Measures(document, region);
    if (region.startSlot == region.endSlot) {
        return Say(Text::kSelectionInStaff, {first, measures});
    }
    return Say(Text::kSelectionInStaves,
               {first, StaffName(document, region.endSlot, region.endStaffList), measures});
}

}  // namespace standin::desktop
