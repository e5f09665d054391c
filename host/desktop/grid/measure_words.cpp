#include "host/desktop/grid/measure_words.h"

#include "host/report/places.h"
#include "host/texts/texts.h"

namespace standin::desktop {

namespace {

std::string LengthWords(i32 duration) {
    constexpr Text kLengths[] = {Text::kBreve,  Text::kWhole, Text::kHalf, Text::kQuarter,
                                 Text::kEighth, Text::k16th,  Text::k32nd, Text::k64th};
    i32 plain = 8 * kQuarterNote;
    for (const Text length : kLengths) {
        std::string words = Say(length, {});
        if (duration == plain) {
            return words;
        }
        if (2 * duration == 3 * plain) {
            return Say(Text::kDotted, {words});
        }
        if (4 * duration == 7 * plain) {
            return Say(Text::kDoubleDotted, {words});
        }
        plain /= 2;
    }
    return Say(Text::kNoLength, {});
}

std::string EntryWords(const ImportedScore& score, u16 measure, const EXENTRY& entry) {
    const std::string length = LengthWords(entry.duration);
    if (entry.noteCount == 0) {
        const std::string rest = Say(Text::kRestOfLength, {length});
        return (entry.flags & EntryFlag::kIgnore) != 0 ? Say(Text::kHiddenRest, {rest}) : rest;
    }
    std::string words =
        (entry.flags & EntryFlag::kGrace) != 0 ? Say(Text::kGraceLength, {length}) : length;
    for (int i = 0; i < entry.noteCount; ++i) {
        words += (i == 0 ? " " : "+") + NameOfNote(score, measure, entry.notes[i]);
    }
    return words;
}

}  // namespace

std::string MeasureWords(const ImportedScore& score, u16 staff, u16 measure) {
    std::string words;
    for (u16 layer = 0; layer < kLayers; ++layer) {
        const Frame* frame = score.document->FindFrame({staff, measure, layer});
        if (frame == nullptr || frame->entries.empty()) {
            continue;
        }
        std::string list;
        for (const EXENTRY& entry : frame->entries) {
            list += (list.empty() ? "" : ", ") + EntryWords(score, measure, entry);
        }
        words +=
            (words.empty() ? "" : ". ") + Say(Text::kLayerHolds, {std::to_string(layer + 1), list});
    }
    return words;
}

}  // namespace standin::desktop
