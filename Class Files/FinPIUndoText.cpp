// The text of the host's undo command for a run: the title and the measures.
#include <algorithm>
#include <string_view>

#include "Class Files/FinPI.h"
#include "Class Files/score/document/FinPIMeas.h"

namespace {

// The measure number's text, its terminator included.
constexpr u32 kMeasureNumberUnits = 25;
// The least room for a separator and a digit.
constexpr i32 kLeastRoom = 3;

// Returns the text's new length. A missing measure does not make the run fail.
i32 AppendMeasure(char16* buffer, i32 capacity, i32 length, char16 separator, i16 measure) {
    if (capacity - length < kLeastRoom || MeasureRecord(static_cast<u16>(measure)).Load() == 0) {
        return length;
    }
    char16 number[kMeasureNumberUnits];
    FinPIMeas::MeasureNumberString(measure, number, kMeasureNumberUnits);
    buffer[length++] = separator;
    const std::u16string_view digits{number};
    const auto room = static_cast<std::size_t>(capacity - length);
    length += static_cast<i32>(digits.copy(buffer + length, room));
    buffer[length] = u'\0';
    return length;
}

}  // namespace

void FinPI::GetUndoText(char16* buffer, i32 length, const EREGION& region) const {
    if (length < 1) {
        return;
    }
    GetTitle(buffer, length, 0);
    const i32 capacity = length - 1;
    const auto titleLength = static_cast<i32>(std::u16string_view{buffer}.size());
    const i32 withFirst = AppendMeasure(buffer, capacity, titleLength, u' ', region.startMeasure);
    if (region.endMeasure != region.startMeasure) {
        AppendMeasure(buffer, capacity, withFirst, u'-', region.endMeasure);
    }
}
