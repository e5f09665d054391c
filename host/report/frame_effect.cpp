#include "host/report/frame_effect.h"

#include <algorithm>
#include <unordered_map>

namespace standin {

namespace {

using Numbers = std::unordered_map<u32, const EXENTRY*>;

Numbers ByNumber(const std::vector<EXENTRY>& entries) {
    Numbers numbers;
    for (const EXENTRY& entry : entries) {
        numbers.emplace(u32{entry.entryNumber}, &entry);
    }
    return numbers;
}

const EXENTRY* Find(const Numbers& numbers, u32 number) {
    const auto found = numbers.find(number);
    return found == numbers.end() ? nullptr : found->second;
}

// A rest may also be replaced by other rests.
bool GaveWayToMusic(const EXENTRY& rest, const std::vector<EXENTRY>& now) {
    const auto end = [](const EXENTRY& entry) { return entry.elapsedTime + entry.actualDuration; };
    return std::ranges::any_of(now, [&](const EXENTRY& e) {
        return e.noteCount > 0 && e.elapsedTime < end(rest) && rest.elapsedTime < end(e);
    });
}

}  // namespace

FrameEffect& FrameEffect::operator+=(const FrameEffect& other) noexcept {
    chordsFormed += other.chordsFormed;
    notesMoved += other.notesMoved;
    restsFilled += other.restsFilled;
    notesGone += other.notesGone;
    return *this;
}

FrameEffect EffectOn(const std::vector<EXENTRY>& before, const std::vector<EXENTRY>& now) {
    const Numbers numbersBefore = ByNumber(before);
    const Numbers numbersNow = ByNumber(now);
    FrameEffect effect;
    for (const EXENTRY& entry : now) {
        const EXENTRY* old = Find(numbersBefore, entry.entryNumber);
        const int had = old == nullptr ? 0 : old->noteCount;
        effect.notesMoved += std::max(entry.noteCount - had, 0);
        effect.chordsFormed += had > 0 && entry.noteCount > had ? 1 : 0;
    }
    for (const EXENTRY& entry : before) {
        if (Find(numbersNow, entry.entryNumber) == nullptr) {
            effect.notesGone += entry.noteCount;
            effect.restsFilled += entry.noteCount == 0 && GaveWayToMusic(entry, now) ? 1 : 0;
        }
    }
    return effect;
}

}  // namespace standin
