#include "host/readback/compare/compare.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

#include "host/readback/compare/comparison.h"

namespace standin::readback {
namespace {

class NoteNumbers {
public:
    std::vector<u32> Of(const Score& score) {
        std::vector<u32> ids;
        ids.reserve(score.notes.size());
        for (const Note& note : score.notes) {
            const std::pair key{note.form, note.duration};
            ids.push_back(m_ids.try_emplace(key, static_cast<u32>(m_ids.size())).first->second);
        }
        return ids;
    }

private:
    std::map<std::pair<u32, ExactTime>, u32> m_ids;
};

bool Clears(const ClearedMusic& cleared, const Chord& chord, const Texts& texts) {
    const i64 onset = chord.place.onset.InUnits();
    return texts[chord.voice] == cleared.voice && onset >= cleared.first && onset <= cleared.last;
}

std::vector<bool> ClearedIn(const Score& score, const std::vector<ClearedMusic>& cleared,
                            const Texts& texts) {
    std::multimap<std::pair<u32, u32>, const ClearedMusic*> byPlace;
    for (const ClearedMusic& music : cleared) {
        byPlace.emplace(std::pair{music.staff, music.measure}, &music);
    }
    std::vector<bool> result(score.chords.size());
    for (std::size_t i = 0; i < score.chords.size(); ++i) {
        const Chord& chord = score.chords[i];
        const auto [first, last] =
            byPlace.equal_range({chord.place.staff, chord.place.measure + 1});
        result[i] = std::any_of(
            first, last, [&](const auto& entry) { return Clears(*entry.second, chord, texts); });
    }
    return result;
}

// False if the scores have too little in common to continue.
bool CompareShape(const Score& before, const Score& after, const Texts& texts, Findings& findings) {
    const auto same = [&](std::size_t was, std::size_t is, const std::string& what) {
        if (was != is) {
            findings.AddForScore(
                Say(Text::kCountsDiffer, {what, std::to_string(was), std::to_string(is)}));
        }
        return was == is;
    };
    if (!same(before.parts.size(), after.parts.size(), std::string{Say(Text::kPartsCounted)})) {
        return false;
    }
    bool isSame = true;
    for (std::size_t i = 0; i < before.parts.size(); ++i) {
        const Part& was = before.parts[i];
        const Part& is = after.parts[i];
        const std::string part = std::to_string(i + 1);
        if (was.id != is.id) {
            findings.AddForScore(Say(Text::kCountsDiffer,
                                     {Say(Text::kIdOfPart, {part}), texts[was.id], texts[is.id]}));
        }
        isSame =
            same(was.measures.size(), is.measures.size(), Say(Text::kMeasuresCounted, {part})) &&
            same(was.staves, is.staves, Say(Text::kStavesCounted, {part})) && isSame;
    }
    return isSame;
}

std::vector<Difference> Compare(const Score& before, const Score& after, const Texts& texts,
                                bool merged, const std::vector<ClearedMusic>& cleared) {
    Findings findings{before, texts};
    if (CompareShape(before, after, texts, findings)) {
        NoteNumbers numbers;
        const Comparison comparison{
            {before, numbers.Of(before), ClearedIn(before, cleared, texts)},
            {after, numbers.Of(after), std::vector<bool>(after.chords.size())},
            texts,
            findings,
            merged};
        CompareItems(comparison);
        CompareLines(comparison);
        if (merged) {
            CompareChords(comparison);
            CompareStreams(comparison);
        } else {
            CompareFacts(comparison);
        }
    }
    return findings.All();
}

}  // namespace

bool HasNote(const Side& side, u32 chord, u32 noteId) {
    const Range& notes = side.score.chords[chord].notes;
    const auto begin = side.noteIds.begin();
    return std::find(begin + notes.begin, begin + notes.end, noteId) != begin + notes.end;
}

bool HasNotesOf(const Side& whole, u32 chord, const Side& part, u32 of) {
    const Range& notes = part.score.chords[of].notes;
    for (u32 i = notes.begin; i < notes.end; ++i) {
        if (!HasNote(whole, chord, part.noteIds[i])) {
            return false;
        }
    }
    return true;
}

const std::string& WordsForNote(const Comparison& comparison, const Side& side, u32 note) {
    return comparison.texts[side.score.notes[note].words];
}

void AddMissing(const Comparison& comparison, u32 part, const Place& place, Difference::Kind kind,
                const std::string& words) {
    const Text text = kind == Difference::Kind::kLost ? Text::kLost : Text::kGained;
    comparison.findings.Add(part, place, kind, Say(text, {words}));
}

void CompareItems(const Comparison& comparison) {
    using Key = std::tuple<u32, Place, bool, u32>;
    const auto keysOf = [](const Score& score) {
        std::vector<Key> keys;
        for (const Item& item : score.items) {
            keys.emplace_back(item.part, item.place, item.closesMeasure, item.text);
        }
        std::ranges::sort(keys);
        return keys;
    };
    const std::vector<Key> before = keysOf(comparison.before.score);
    const std::vector<Key> after = keysOf(comparison.after.score);
    const auto report = [&](const std::vector<Key>& items, const std::vector<Key>& others,
                            Difference::Kind kind) {
        std::vector<Key> missing;
        std::set_difference(items.begin(), items.end(), others.begin(), others.end(),
                            std::back_inserter(missing));
        for (const auto& [part, place, closes, text] : missing) {
            AddMissing(comparison, part, place, kind, comparison.findings.Quoted(text));
        }
    };
    report(before, after, Difference::Kind::kLost);
    report(after, before, Difference::Kind::kGained);
}

std::vector<Difference> Differences(const Score& before, const Score& after, const Texts& texts) {
    return Compare(before, after, texts, false, {});
}

std::vector<Difference> FaultsOfMerge(const Score& before, const Score& after, const Texts& texts,
                                      const std::vector<ClearedMusic>& cleared) {
    return Compare(before, after, texts, true, cleared);
}

}  // namespace standin::readback
