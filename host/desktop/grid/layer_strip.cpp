#include "host/desktop/grid/layer_strip.h"

#include <algorithm>

#include "host/score/time/entry_times.h"

namespace standin::desktop {

namespace {

std::string NoteValue(i32 duration) {
    constexpr char kLetters[] = {'w', 'h', 'q', 'e', 's', 't', 'x'};
    i32 value = 4 * kQuarterNote;
    for (const char letter : kLetters) {
        std::string text{letter};
        i32 sum = value;
        for (i32 dot = value / 2; sum < duration && dot > 0; dot /= 2) {
            sum += dot;
            text += '.';
        }
        if (sum == duration) {
            return text;
        }
        value /= 2;
    }
    return std::to_string(duration);
}

std::string EntryText(const EXENTRY& entry) {
    std::string text;
    if ((entry.flags & EntryFlag::kVoice2) != 0) {
        text += "2";
    }
    if ((entry.flags & EntryFlag::kGrace) != 0) {
        text += "g";
    }
    text += NoteValue(entry.duration);
    text += (entry.flags & EntryFlag::kNote) != 0 ? std::to_string(entry.noteCount) : "r";
    if ((entry.flags & EntryFlag::kIgnore) != 0) {
        text += "-";
    }
    return text;
}

StripKind KindOf(const EXENTRY& entry) {
    if ((entry.flags & EntryFlag::kIgnore) != 0) {
        return StripKind::kHidden;
    }
    if ((entry.flags & EntryFlag::kNote) == 0) {
        return StripKind::kRest;
    }
    return (entry.flags & EntryFlag::kGrace) != 0 ? StripKind::kGrace : StripKind::kNotes;
}

}  // namespace

std::vector<StripItem> StripOf(const Frame& frame, i32 measureDuration) {
    std::vector<StripItem> strip;
    if (measureDuration <= 0) {
        return strip;
    }
    const double whole = measureDuration;
    for (const EXENTRY& entry : frame.entries) {
        StripItem item;
        item.kind = KindOf(entry);
        item.notes = entry.noteCount;
        item.begin = std::clamp(entry.elapsedTime / whole, 0.0, 1.0);
        item.end = std::clamp(EndOf(entry) / whole, item.begin, 1.0);
        strip.push_back(item);
    }
    return strip;
}

std::string StripText(const Frame& frame) {
    std::string text;
    for (const EXENTRY& entry : frame.entries) {
        if (!text.empty()) {
            text += ' ';
        }
        text += EntryText(entry);
    }
    return text;
}

}  // namespace standin::desktop
