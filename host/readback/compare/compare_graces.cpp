// Whether grace notes that stay in one voice through a merge stay in their order.
#include "host/readback/compare/comparison.h"

namespace standin::readback {
namespace {

// The one chord with these notes; null when there are several, or none.
const Chord* Found(const Comparison& comparison, u32 was, const Indices& after) {
    const Chord* found = nullptr;
    for (const u32 is : after) {
        if (HasNotesOf(comparison.after, is, comparison.before, was)) {
            if (found != nullptr) {
                return nullptr;
            }
            found = &comparison.after.score.chords[is];
        }
    }
    return found;
}

}  // namespace

void CompareGraces(const Comparison& comparison, const Group& group) {
    std::map<std::pair<u32, u32>, u32> byNumber;  // by voice and number
    for (const u32 was : group.before) {
        const Chord& chord = comparison.before.score.chords[was];
        byNumber[{chord.voice, chord.grace}] = was;
    }
    for (const auto& [key, second] : byNumber) {
        const auto earlier = byNumber.find({key.first, key.second + 1});
        if (earlier == byNumber.end()) {
            continue;
        }
        const Chord* first = Found(comparison, earlier->second, group.after);
        const Chord* last = Found(comparison, second, group.after);
        if (first != nullptr && last != nullptr && first->voice == last->voice &&
            first->grace < last->grace) {
            comparison.findings.Add(last->part, last->place, Difference::Kind::kOther,
                                    std::string{Say(Text::kGracesOutOfOrder)});
        }
    }
}

}  // namespace standin::readback
