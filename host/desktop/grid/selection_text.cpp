#include "host/desktop/grid/selection_text.h"

namespace standin::desktop {

namespace {

std::u16string Number(i32 number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

std::u16string StaffName(const Document& document, i16 slot, u16 list) {
    const u16 staff = document.StaffInSlot(slot, list);
    const std::u16string name = document.AutoNumberedName(staff);
    return name.empty() ? u"staff " + Number(slot) : name;
}

// The beat, from 1, of a position; nothing if it adds nothing to the measure.
std::u16string Beat(const Document& document, i16 measure, i32 position, bool says) {
    const i32 beat = document.Measure(static_cast<u16>(measure)).beatDuration;
    return says && beat > 0 ? u" beat " + Number(position / beat + 1) : std::u16string{};
}

std::u16string Measures(const Document& document, const EREGION& region) {
    const std::u16string first = document.MeasureNumberText(static_cast<u16>(region.startMeasure));
    const std::u16string last = document.MeasureNumberText(static_cast<u16>(region.endMeasure));
    const bool endsInside = region.endPosition != kEndOfMeasure;
    if (region.startMeasure == region.endMeasure && region.startPosition == 0 && !endsInside) {
        return u"measure " + first;
    }
    const bool bothBeats = region.startPosition != 0 || endsInside;
    return u"measure " + first +
           Beat(document, region.startMeasure, region.startPosition, bothBeats) + u" to " + last +
           Beat(document, region.endMeasure, region.endPosition, endsInside);
}

}  // namespace

std::u16string SelectionText(const Document& document) {
    if (!document.selection) {
        return u"Nothing is selected";
    }
    const EREGION& region = *document.selection;
    std::u16string text = StaffName(document, region.startSlot, region.startStaffList);
    if (region.startSlot != region.endSlot) {
        text += u" to " + StaffName(document, region.endSlot, region.endStaffList);
    }
    return text + u", " + Measures(document, region);
}

}  // namespace standin::desktop
