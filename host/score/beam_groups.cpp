#include "host/score/beam_groups.h"

#include <algorithm>

#include "host/score/time/entry_times.h"
#include "shell/host/detail_flags.h"

namespace standin {
namespace {

constexpr i32 kEighth = kQuarterNote / 2;

// How many beams a duration has; 0 from the quarter note on.
int BeamCount(i32 duration) {
    int count = 0;
    for (i32 limit = kQuarterNote; duration > 0 && duration < limit && count < 8; limit /= 2) {
        ++count;
    }
    return count;
}

bool CanBeBeamed(const EXENTRY& entry) {
    return (entry.flags & EntryFlag::kNote) != 0 && (entry.flags & EntryFlag::kIgnore) == 0 &&
           BeamCount(entry.duration) > 0;
}

// The time over which eighths may share a beam; shorter values never share one longer.
struct Grouping {
    i32 eighths;
    i32 shorter;
};

Grouping GroupingOf(const EDTMeasureSpec2014& measure) {
    const i32 beat = std::max<i32>(measure.beatDuration, 1);
    if (beat == kEighth && measure.beats % 3 == 0) {
        return {3 * kEighth, 3 * kEighth};
    }
    if (beat == kQuarterNote && measure.beats == 4) {
        return {2 * kQuarterNote, kQuarterNote};
    }
    const i32 group = std::max(beat, kQuarterNote);
    return {group, beat == 2 * kQuarterNote ? kQuarterNote : group};
}

class Beamer {
public:
    Beamer(const std::vector<EXENTRY>& entries, const EDTMeasureSpec2014& measure,
           const RecordStore& records)
        : m_entries{entries},
          m_records{records},
          m_grouping{GroupingOf(measure)},
          m_levels(entries.size()) {}

    std::vector<BeamLevels> Run() {
        for (const u32 voice : {0U, EntryFlag::kVoice2}) {
            m_tuplets = TupletRunsOf(m_entries, voice != 0, m_records);
            for (const u32 grace : {0U, EntryFlag::kGrace}) {
                BeamVoice(voice, grace);
            }
        }
        return std::move(m_levels);
    }

private:
    using Group = std::vector<std::size_t>;  // indices of entries

    void BeamVoice(u32 voice, u32 grace) {
        Group group;
        for (std::size_t i = 0; i < m_entries.size(); ++i) {
            const EXENTRY& entry = m_entries[i];
            if ((entry.flags & EntryFlag::kVoice2) != voice) {
                continue;
            }
            if ((entry.flags & EntryFlag::kGrace) != grace) {
                if (grace != 0) {
                    Close(group);
                }
                continue;
            }
            if (!CanBeBeamed(entry)) {
                const bool isShortRest = (entry.flags & EntryFlag::kNote) == 0 &&
                                         (entry.flags & EntryFlag::kIgnore) == 0 &&
                                         entry.duration < kEighth;
                if (!isShortRest) {
                    Close(group);
                }
                continue;
            }
            if (!group.empty() && !Joins(group, entry)) {
                Close(group);
            }
            group.push_back(i);
        }
        Close(group);
    }

    bool Joins(const Group& group, const EXENTRY& entry) const {
        if ((entry.flags & DetailFlag::kPrimaryBeamBreak) != 0) {
            return false;
        }
        const auto isShorter = [this](std::size_t i) { return m_entries[i].duration < kEighth; };
        const bool allEighths = entry.duration >= kEighth && std::ranges::none_of(group, isShorter);
        const i32 span = allEighths ? m_grouping.eighths : m_grouping.shorter;
        return m_entries[group.front()].elapsedTime / span == entry.elapsedTime / span;
    }

    void Close(Group& group) {
        for (const Group& piece : PiecesOf(group)) {
            for (std::size_t level = 0; level < std::tuple_size_v<BeamLevels> && piece.size() > 1;
                 ++level) {
                BeamLevel(piece, level);
            }
        }
        group.clear();
    }

    // Split where a tuplet begins or ends that contains only some of the entries.
    std::vector<Group> PiecesOf(const Group& group) const {
        std::vector<Group> pieces;
        for (const std::size_t entry : group) {
            if (pieces.empty() || IsParted(group, pieces.back().back(), entry)) {
                pieces.emplace_back();
            }
            pieces.back().push_back(entry);
        }
        return pieces;
    }

    bool IsParted(const Group& group, std::size_t entry, std::size_t next) const {
        return std::ranges::any_of(m_tuplets, [&](const TupletRun& tuplet) {
            const bool begins = entry < tuplet.first && tuplet.first <= next;
            const bool ends = entry <= tuplet.last && tuplet.last < next;
            return (begins && group.back() < tuplet.last) || (ends && tuplet.first < group.front());
        });
    }

    bool Reaches(std::size_t entry, std::size_t level) const {
        return static_cast<std::size_t>(BeamCount(m_entries[entry].duration)) > level;
    }

    bool BreaksAt(std::size_t entry, std::size_t level) const {
        return level > 0 && (m_entries[entry].flags & DetailFlag::kSecondaryBeamBreak) != 0;
    }

    void BeamLevel(const Group& group, std::size_t level) {
        for (std::size_t first = 0; first < group.size();) {
            if (!Reaches(group[first], level)) {
                ++first;
                continue;
            }
            std::size_t end = first + 1;
            while (end < group.size() && Reaches(group[end], level) &&
                   !BreaksAt(group[end], level)) {
                ++end;
            }
            if (end - first == 1) {
                m_levels[group[first]][level] = HookOf(group, first);
            } else {
                for (std::size_t i = first; i < end; ++i) {
                    m_levels[group[i]][level] = Beam::kContinue;
                }
                m_levels[group[first]][level] = Beam::kBegin;
                m_levels[group[end - 1]][level] = Beam::kEnd;
            }
            first = end;
        }
    }

    // A hook points to the note with which it completes the beat.
    Beam HookOf(const Group& group, std::size_t position) const {
        const EXENTRY& entry = m_entries[group[position]];
        const bool startsPair = entry.elapsedTime % (2 * entry.duration) == 0;
        const bool forward = position == 0 || (position + 1 < group.size() && startsPair);
        return forward ? Beam::kForwardHook : Beam::kBackwardHook;
    }

    const std::vector<EXENTRY>& m_entries;
    const RecordStore& m_records;
    std::vector<TupletRun> m_tuplets;  // of the voice
    Grouping m_grouping;
    std::vector<BeamLevels> m_levels;
};

}  // namespace

std::vector<BeamLevels> ComputeBeams(const std::vector<EXENTRY>& entries,
                                     const EDTMeasureSpec2014& measure,
                                     const RecordStore& records) {
    return Beamer{entries, measure, records}.Run();
}

}  // namespace standin
