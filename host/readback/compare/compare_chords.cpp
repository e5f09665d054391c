// Whether a merge kept each note, with its chord and its attachments.
#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "host/readback/compare/comparison.h"

namespace standin::readback {
namespace {

// The attachments of chords, found by their text.
class Marks {
public:
    void Read(const Side& side, const Indices& chords) {
        m_marks.clear();
        for (const u32 chord : chords) {
            const Range& notes = side.score.chords[chord].notes;
            for (u32 note = notes.begin; note < notes.end; ++note) {
                const Range& range = side.score.notes[note].attachments;
                for (u32 at = range.begin; at < range.end; ++at) {
                    const Attachment& mark = side.score.attachments[at];
                    m_marks.push_back({chord, mark.text, mark.lyric, side.noteIds[note]});
                }
            }
        }
        std::ranges::sort(m_marks);
    }

    // On that note, if it is one note's alone.
    bool HasText(u32 chord, const Attachment& wanted, u32 noteId) const {
        return AnyFrom({chord, wanted.text, 0, 0}, 2,
                       [&](const Mark& mark) { return !wanted.ofNote || mark[3] == noteId; });
    }

    // A lyric may have another number if its own is taken.
    bool Has(u32 chord, const Attachment& wanted, u32 noteId) const {
        const bool isThere =
            AnyFrom({chord, wanted.text, wanted.lyric, 0}, 3,
                    [&](const Mark& mark) { return !wanted.ofNote || mark[3] == noteId; });
        return isThere || (wanted.lyric != kNone && HasText(chord, wanted, noteId) &&
                           AnyFrom({chord, 0, 0, 0}, 1,
                                   [&](const Mark& mark) { return mark[2] == wanted.lyric; }));
    }

private:
    using Mark = std::array<u32, 4>;  // chord, text, number of the lyric, the note's ID

    // Of those that have so many values in common with the first one.
    template <typename Test>
    bool AnyFrom(const Mark& first, std::ptrdiff_t common, Test test) const {
        const auto isAlike = [&](const Mark& mark) {
            return std::equal(first.begin(), first.begin() + common, mark.begin());
        };
        for (auto at = std::ranges::lower_bound(m_marks, first);
             at != m_marks.end() && isAlike(*at); ++at) {
            if (test(*at)) {
                return true;
            }
        }
        return false;
    }

    std::vector<Mark> m_marks;
};

class ChordComparison {
public:
    explicit ChordComparison(const Comparison& comparison)
        : m_all{comparison}, m_before{comparison.before}, m_after{comparison.after} {}

    void Run() {
        std::map<GroupKey, Group> groups;
        const auto collect = [&](const Score& score, Indices Group::*side) {
            for (u32 i = 0; i < score.chords.size(); ++i) {
                const Chord& chord = score.chords[i];
                if (!MeasureNow(chord).isRepeated) {
                    (groups[GroupOf(chord)].*side).push_back(i);
                }
            }
        };
        collect(m_before.score, &Group::before);
        collect(m_after.score, &Group::after);
        for (const auto& [key, group] : groups) {
            m_marksBefore.Read(m_before, group.before);
            m_marksAfter.Read(m_after, group.after);
            CompareNotes(group);
            CompareCompany(group);
            CompareRests(m_all, group);
            if (key.second) {
                CompareGraces(m_all, group);
            }
        }
    }

private:
    // The measure of a chord of either score, after the merge.
    const MeasureContent& MeasureNow(const Chord& chord) const {
        return m_after.score.parts[chord.part].measures[chord.place.measure];
    }

    void Report(const Chord& chord, Difference::Kind kind, const std::string& words) const {
        AddMissing(m_all, chord.part, chord.place, kind, words);
    }
    void ReportOther(const Chord& chord, Text text, const std::string& words) const {
        m_all.findings.Add(chord.part, chord.place, Difference::Kind::kOther, Say(text, {words}));
    }

    // Each note as often as before.
    void CompareNotes(const Group& group) const {
        struct Count {
            int required = 0;
            int possible = 0;
            int found = 0;
            const Side* side = nullptr;
            u32 note = 0;
        };
        std::map<u32, Count> counts;
        const auto count = [&](const Side& side, const Indices& chords, auto add) {
            for (const u32 index : chords) {
                const Chord& chord = side.score.chords[index];
                for (u32 i = chord.notes.begin; i < chord.notes.end && !chord.rest; ++i) {
                    Count& number = counts[side.noteIds[i]];
                    if (number.side == nullptr) {
                        number.side = &side;
                        number.note = i;
                    }
                    add(number, index);
                }
            }
        };
        count(m_before, group.before, [this](Count& number, u32 chord) {
            ++number.possible;
            number.required += m_before.isCleared[chord] ? 0 : 1;
        });
        count(m_after, group.after, [](Count& number, u32) { ++number.found; });
        for (const auto& [id, number] : counts) {
            const Chord& chord =
                number.side->score.chords[number.side->score.notes[number.note].chord];
            const std::string& words = WordsForNote(m_all, *number.side, number.note);
            if (number.found < number.required) {
                Report(chord, Difference::Kind::kLost, words);
            } else if (number.found > number.possible) {
                Report(chord, Difference::Kind::kGained, words);
            }
        }
    }

    // Each chord must be in one chord, with its marks; no mark may come from nowhere.
    void CompareCompany(const Group& group) const {
        for (const u32 was : group.before) {
            if (!m_before.score.chords[was].rest && !m_before.isCleared[was]) {
                FindCompany(was, group);
            }
        }
        for (const u32 is : group.after) {
            if (!m_after.score.chords[is].rest) {
                CheckGained(is, group.before);
            }
        }
    }

    void FindCompany(u32 was, const Group& group) const {
        Indices missing;  // attachments, in the chord that comes nearest
        bool isWhole = false;
        bool lacksTuplet = false;
        for (const u32 is : group.after) {
            if (m_after.score.chords[is].rest || !HasNotesOf(m_after, is, m_before, was)) {
                continue;
            }
            Indices lost = LostAttachments(was, is);
            const bool torn = !HasBracketsOf(is, was) && !JoinedAChord(is, was, group.before);
            if (!isWhole || lost.size() + torn < missing.size() + lacksTuplet) {
                missing = std::move(lost);
                lacksTuplet = torn;
            }
            isWhole = true;
        }
        const Chord& chord = m_before.score.chords[was];
        const std::string& words = WordsForNote(m_all, m_before, chord.notes.begin);
        if (!isWhole && HasEachNote(chord, group.after)) {
            ReportOther(chord, Text::kPartedFromChord, words);
        }
        if (lacksTuplet) {
            ReportOther(chord, Text::kOutOfTuplet, words);
        }
        for (const u32 attachment : missing) {
            const u32 text = m_before.score.attachments[attachment].text;
            Report(chord, Difference::Kind::kLost,
                   Say(Text::kMarkOf, {m_all.findings.Quoted(text), words}));
        }
    }

    bool HasBracketsOf(u32 is, u32 was) const {
        const Chord& after = m_after.score.chords[is];
        const Chord& before = m_before.score.chords[was];
        return after.ratio == before.ratio &&
               std::ranges::includes(after.brackets, before.brackets);
    }

    // A note that joins a chord is in the tuplets of that chord, which keeps at least those it was
    // in. Both take the same time.
    bool JoinedAChord(u32 is, u32 was, const Indices& before) const {
        return std::ranges::any_of(before, [&](u32 other) {
            return other != was && !m_before.score.chords[other].rest && HasBracketsOf(is, other) &&
                   HasNotesOf(m_after, is, m_before, other);
        });
    }

    // Missing notes are reported as lost.
    bool HasEachNote(const Chord& chord, const Indices& after) const {
        for (u32 note = chord.notes.begin; note < chord.notes.end; ++note) {
            const u32 id = m_before.noteIds[note];
            if (std::ranges::none_of(after, [&](u32 is) { return HasNote(m_after, is, id); })) {
                return false;
            }
        }
        return true;
    }

    // Attachments of the first chord that are missing in the second, which has its notes.
    Indices LostAttachments(u32 was, u32 is) const {
        Indices lost;
        const Range& notes = m_before.score.chords[was].notes;
        for (u32 note = notes.begin; note < notes.end; ++note) {
            const Range& range = m_before.score.notes[note].attachments;
            for (u32 at = range.begin; at < range.end; ++at) {
                const Attachment& attachment = m_before.score.attachments[at];
                if (!attachment.look && !m_marksAfter.Has(is, attachment, m_before.noteIds[note])) {
                    lost.push_back(at);
                }
            }
        }
        return lost;
    }

    void CheckGained(u32 is, const Indices& before) const {
        const Chord& chord = m_after.score.chords[is];
        for (u32 note = chord.notes.begin; note < chord.notes.end; ++note) {
            const Range& range = m_after.score.notes[note].attachments;
            for (u32 at = range.begin; at < range.end; ++at) {
                const Attachment& attachment = m_after.score.attachments[at];
                const bool isBrought =
                    attachment.look || std::ranges::any_of(before, [&](u32 was) {
                        return HasNotesOf(m_after, is, m_before, was) &&
                               m_marksBefore.HasText(was, attachment, m_after.noteIds[note]);
                    });
                if (!isBrought) {
                    Report(chord, Difference::Kind::kGained,
                           Say(Text::kMarkOf, {m_all.findings.Quoted(attachment.text),
                                               WordsForNote(m_all, m_after, note)}));
                }
            }
        }
    }

    const Comparison& m_all;
    const Side& m_before;
    const Side& m_after;
    Marks m_marksBefore;  // of the group that is compared
    Marks m_marksAfter;
};

}  // namespace

void CompareChords(const Comparison& comparison) {
    ChordComparison{comparison}.Run();
}

}  // namespace standin::readback
