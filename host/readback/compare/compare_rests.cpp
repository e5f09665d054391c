// Whether rests keep their marks in a merge.
#include <string>

#include "host/readback/compare/comparison.h"

namespace standin::readback {
namespace {

struct Carried {
    int count = 0;
    u32 chord = 0;  // one of those that carry it
};

// The marks of rests, by text.
std::map<u32, Carried> MarksOf(const Side& side, const Indices& chords, bool withCleared) {
    std::map<u32, Carried> marks;
    for (const u32 index : chords) {
        const Chord& chord = side.score.chords[index];
        if (!chord.rest || (side.isCleared[index] && !withCleared)) {
            continue;
        }
        for (u32 note = chord.notes.begin; note < chord.notes.end; ++note) {
            const Range& range = side.score.notes[note].attachments;
            for (u32 at = range.begin; at < range.end; ++at) {
                const Attachment& attachment = side.score.attachments[at];
                if (!attachment.look) {
                    Carried& carried = marks[attachment.text];
                    ++carried.count;
                    carried.chord = index;
                }
            }
        }
    }
    return marks;
}

}  // namespace

// Such rests stay rests, and are never joined.
void CompareRests(const Comparison& comparison, const Group& group) {
    const auto report = [&](const Side& side, const std::map<u32, Carried>& marks,
                            const std::map<u32, Carried>& others, Difference::Kind kind) {
        for (const auto& [text, carried] : marks) {
            const auto other = others.find(text);
            if (other == others.end() || other->second.count < carried.count) {
                const Chord& chord = side.score.chords[carried.chord];
                AddMissing(comparison, chord.part, chord.place, kind,
                           Say(Text::kOfARest, {comparison.findings.Quoted(text)}));
            }
        }
    };
    const Side& before = comparison.before;
    const Side& after = comparison.after;
    const std::map<u32, Carried> is = MarksOf(after, group.after, true);
    report(before, MarksOf(before, group.before, false), is, Difference::Kind::kLost);
    report(after, is, MarksOf(before, group.before, true), Difference::Kind::kGained);
}

}  // namespace standin::readback
