#include "host/musicxml/read/entry_length.h"

namespace standin {
namespace {

constexpr i64 kLongestDuration = 0x7FFF;
constexpr i16 kGraceDuration = kQuarterNote / 2;

// The reference span as count times unit; false if it has no such factors.
bool SetReference(EDTTuplet2005& tuplet, i64 actual) {
    for (i64 count = 1; count <= kLongestDuration; ++count) {
        if (actual % count == 0 && actual / count <= kLongestDuration) {
            tuplet.referenceCount = static_cast<i16>(count);
            tuplet.referenceUnitDuration = static_cast<i16>(actual / count);
            return true;
        }
    }
    return false;
}

}  // namespace

std::optional<EntryLength> LengthOfEntry(i32 notated, i64 actual, bool grace) {
    EntryLength length;
    if (grace) {
        const bool fits = notated > 0 && notated <= kLongestDuration;
        length.duration = fits ? static_cast<i16>(notated) : kGraceDuration;
        return length;
    }
    i64 duration = notated > 0 ? notated : actual;
    while (duration > kLongestDuration) {
        duration /= 2;
    }
    if (duration > actual * kLargestRatio || actual > duration * kLargestRatio) {
        duration = actual;
    }
    if (actual > kLongestDuration * kLongestDuration || duration > kLongestDuration) {
        return std::nullopt;
    }
    length.duration = static_cast<i16>(duration);
    length.tuplet.symbolicCount = 1;
    length.tuplet.symbolicUnitDuration = length.duration;
    length.needsTuplet = duration != actual;
    if (actual > 0 && !SetReference(length.tuplet, actual)) {
        return std::nullopt;
    }
    return length;
}

}  // namespace standin
