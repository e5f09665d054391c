// Whether a merge wrote something that readers misread, and did not before.
#include <algorithm>
#include <string>

#include "host/readback/compare/comparison.h"

namespace standin::readback {
namespace {

struct Slip {
    bool Chord::*mark;
    bool Chord::*counts;  // otherwise the mark is not a fault of the merge
    Text words;
};

constexpr Slip kSlips[] = {
    {&Chord::sharesTime, &Chord::sharesTime, Text::kSharesTime},
    {&Chord::onTwoStaves, &Chord::onTwoStaves, Text::kOnTwoStaves},
    {&Chord::tieRunsBackward, &Chord::tieCouldRunForward, Text::kTiedBackward},
    {&Chord::repeatsLyric, &Chord::repeatsLyric, Text::kTwoLyrics},
};

// Where the fault existed before: notes by place, and voices of whole measures for rests.
struct Known {
    std::set<std::tuple<Place, u32>> notes;
    std::set<std::tuple<u32, u32, u32>> voices;  // by part, measure, voice

    Known(const Side& side, bool Chord::*mark) {
        for (const Chord& chord : side.score.chords) {
            if (!(chord.*mark)) {
                continue;
            }
            voices.emplace(chord.part, chord.place.measure, chord.voice);
            for (u32 i = chord.notes.begin; i < chord.notes.end; ++i) {
                notes.emplace(chord.place, side.noteIds[i]);
            }
        }
    }

    bool Has(const Side& side, const Chord& chord) const {
        if (chord.rest && voices.contains({chord.part, chord.place.measure, chord.voice})) {
            return true;
        }
        for (u32 i = chord.notes.begin; i < chord.notes.end; ++i) {
            if (notes.contains({chord.place, side.noteIds[i]})) {
                return true;
            }
        }
        return false;
    }
};

void CompareSlips(const Comparison& comparison, const Slip& slip) {
    const Known known{comparison.before, slip.mark};
    for (const Chord& chord : comparison.after.score.chords) {
        if (chord.*slip.counts && !known.Has(comparison.after, chord)) {
            const std::string& note = WordsForNote(comparison, comparison.after, chord.notes.begin);
            comparison.findings.Add(chord.part, chord.place, Difference::Kind::kOther,
                                    Say(slip.words, {note}));
        }
    }
}

void CompareBrokenTuplets(const Comparison& comparison) {
    std::set<Place> known;
    for (const BrokenTuplet& tuplet : comparison.before.score.brokenTuplets) {
        known.insert(tuplet.place);
    }
    for (const BrokenTuplet& tuplet : comparison.after.score.brokenTuplets) {
        if (!known.contains(tuplet.place)) {
            comparison.findings.Add(tuplet.part, tuplet.place, Difference::Kind::kOther,
                                    std::string{Say(Text::kBrokenTuplet)});
        }
    }
}

// Some readers take a direction's voice as the first of its staff.
void CompareEarlyItems(const Comparison& comparison) {
    std::set<std::tuple<Place, u32>> known;
    for (const Item& item : comparison.before.score.items) {
        if (item.comesTooEarly) {
            known.emplace(item.place, item.text);
        }
    }
    for (const Item& item : comparison.after.score.items) {
        if (item.comesTooEarly && !known.contains({item.place, item.text})) {
            comparison.findings.Add(item.part, item.place, Difference::Kind::kOther,
                                    Say(Text::kTooEarly, {comparison.findings.Quoted(item.text)}));
        }
    }
}

void CompareLengths(const Comparison& comparison) {
    const std::vector<Part>& parts = comparison.before.score.parts;
    for (u32 part = 0; part < parts.size(); ++part) {
        for (u32 i = 0; i < parts[part].measures.size(); ++i) {
            const MeasureContent& was = parts[part].measures[i];
            const MeasureContent& is = comparison.after.score.parts[part].measures[i];
            if (is.length > was.length) {
                comparison.findings.Add(part, {0, i, {}}, Difference::Kind::kOther,
                                        std::string{Say(Text::kLonger)});
            } else if (is.fullestVoice > std::max(was.length, was.fullestVoice)) {
                comparison.findings.Add(part, {0, i, {}}, Difference::Kind::kOther,
                                        std::string{Say(Text::kVoiceTooLong)});
            }
        }
    }
}

}  // namespace

void CompareStreams(const Comparison& comparison) {
    for (const Slip& slip : kSlips) {
        CompareSlips(comparison, slip);
    }
    CompareBrokenTuplets(comparison);
    CompareEarlyItems(comparison);
    CompareLengths(comparison);
}

}  // namespace standin::readback
