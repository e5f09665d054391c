// Whether two scores contain the same notes, rests and marks, regardless of voices and chords.
#include <algorithm>
#include <tuple>

#include "host/readback/compare/comparison.h"

namespace standin::readback {
namespace {

struct Fact {
    Place place;
    u32 grace;
    u32 kind;   // a note, or the attachment's text
    u32 owner;  // the note's pitch, where it matters
    u32 note;
    u32 chord;

    auto Key() const { return std::tie(place, grace, kind, owner); }
};

constexpr u32 kIsNote = kNone;
constexpr const char* kPlainRest = "<rest/>";

std::vector<Fact> FactsOf(const Side& side, const Texts& texts) {
    const Score& score = side.score;
    std::vector<Fact> facts;
    for (u32 i = 0; i < score.notes.size(); ++i) {
        const Note& note = score.notes[i];
        const Chord& chord = score.chords[note.chord];
        const u32 visible = chord.rest && chord.hidden ? 1 : 0;
        facts.push_back(
            {chord.place, chord.grace, kIsNote, side.noteIds[i] * 2 + visible, i, note.chord});
        for (u32 at = note.attachments.begin; at < note.attachments.end; ++at) {
            const Attachment& attachment = score.attachments[at];
            if (texts[attachment.text] == kPlainRest) {
                continue;  // the rest itself counts
            }
            const u32 owner = attachment.ofNote ? note.pitch : attachment.lyric;
            facts.push_back({chord.place, chord.grace, attachment.text, owner, i, note.chord});
        }
    }
    std::ranges::sort(facts, [](const Fact& a, const Fact& b) { return a.Key() < b.Key(); });
    return facts;
}

}  // namespace

void CompareFacts(const Comparison& comparison) {
    const std::vector<Fact> before = FactsOf(comparison.before, comparison.texts);
    const std::vector<Fact> after = FactsOf(comparison.after, comparison.texts);
    const auto report = [&](const std::vector<Fact>& facts, const std::vector<Fact>& others,
                            const Side& side, Difference::Kind kind) {
        std::vector<Fact> missing;
        std::set_difference(facts.begin(), facts.end(), others.begin(), others.end(),
                            std::back_inserter(missing),
                            [](const Fact& a, const Fact& b) { return a.Key() < b.Key(); });
        for (const Fact& fact : missing) {
            const Chord& chord = side.score.chords[fact.chord];
            std::string what = WordsForNote(comparison, side, fact.note);
            if (chord.rest && chord.hidden) {
                what = Say(Text::kHiddenRest, {what});
            }
            if (fact.kind != kIsNote) {
                what = Say(Text::kMarkOf, {comparison.findings.Quoted(fact.kind), what});
            }
            AddMissing(comparison, chord.part, fact.place, kind, what);
        }
    };
    report(before, after, comparison.before, Difference::Kind::kLost);
    report(after, before, comparison.after, Difference::Kind::kGained);
}

}  // namespace standin::readback
