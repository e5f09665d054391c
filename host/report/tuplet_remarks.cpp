#include "host/report/tuplet_remarks.h"

#include <algorithm>

#include "host/musicxml/write/entries/read_tuplets.h"
#include "host/report/places.h"
#include "host/score/time/entry_times.h"
#include "host/texts/texts.h"

namespace standin {
namespace {

// The time of a tuplet, in duration units from the barline.
struct Span {
    i32 start = 0;
    i32 end = 0;
    bool operator==(const Span&) const = default;
};

class MeasureTuplets {
public:
    MeasureTuplets(const ImportedScore& score, const ScorePart& part, u16 measure, u16 destination)
        : m_score{score},
          m_part{part},
          m_measure{measure},
          m_destination{destination},
          m_read{ReadTupletsOf(score, part, measure)} {}

    void Add(u16 firstSlot, std::vector<Remark>& remarks) const {
        for (const ReadTuplet& tuplet : m_read) {
            if (tuplet.layer == m_destination || !Moved(tuplet)) {
                continue;
            }
            const auto slot = static_cast<u16>(firstSlot + tuplet.staff);
            if (HasPartThatStayed(tuplet)) {
                Remark& remark = AddAt(tuplet, *tuplet.entries.front().entry, slot, remarks);
                remark.what = Say(Text::kTupletName);
                remark.words = Say(Text::kPartOfTupletMoved, {std::to_string(m_destination + 1)});
            }
            for (const TimedEntry& timed : tuplet.entries) {
                if (IsInnermost(tuplet, *timed.entry) && IsOutside(tuplet, *timed.entry)) {
                    Remark& remark = AddAt(tuplet, *timed.entry, slot, remarks);
                    remark.what = NamesOfNotes(*timed.entry);
                    remark.words = Say(Text::kOutsideItsTuplet, {remark.what});
                }
            }
        }
    }

private:
    Remark& AddAt(const ReadTuplet& tuplet, const EXENTRY& entry, u16 slot,
                  std::vector<Remark>& remarks) const {
        Remark& remark = remarks.emplace_back();
        remark.kind = Remark::Kind::kTuplet;
        remark.staff = slot;
        remark.measure = m_measure;
        remark.layer = tuplet.layer;
        remark.onset = i32{entry.elapsedTime};
        return remark;
    }

    const Frame* FrameNow(std::size_t staff, u16 layer) const {
        return m_score.document->FindFrame({m_part.staves[staff].staff, m_measure, layer});
    }

    // Whether the entry's notes are gone from its layer.
    bool HasMoved(const ReadTuplet& tuplet, const EXENTRY& was) const {
        const Frame* now = FrameNow(tuplet.staff, tuplet.layer);
        return was.noteCount > 0 &&
               (now == nullptr || std::ranges::none_of(now->entries, [&was](const EXENTRY& entry) {
                    return entry.entryNumber == was.entryNumber && entry.noteCount > 0;
                }));
    }

    bool Moved(const ReadTuplet& tuplet) const {
        return std::ranges::any_of(tuplet.entries, [&](const TimedEntry& timed) {
            return HasMoved(tuplet, *timed.entry);
        });
    }

    bool HasPartThatStayed(const ReadTuplet& tuplet) const {
        return std::ranges::any_of(m_read, [&](const ReadTuplet& other) {
            const bool isPart =
                other.text.bracket == tuplet.text.bracket && other.staff != tuplet.staff;
            const bool sounds = std::ranges::any_of(
                other.entries, [](const TimedEntry& timed) { return timed.entry->noteCount > 0; });
            return isPart && sounds && !Moved(other);
        });
    }

    static Span SpanOf(const ReadTuplet& tuplet) {
        return {tuplet.entries.front().entry->elapsedTime, EndOf(*tuplet.entries.back().entry)};
    }

    bool IsInnermost(const ReadTuplet& tuplet, const EXENTRY& entry) const {
        const auto has = [&entry](const ReadTuplet& other) {
            return std::ranges::any_of(
                other.entries, [&entry](const TimedEntry& timed) { return timed.entry == &entry; });
        };
        return std::ranges::none_of(m_read, [&](const ReadTuplet& other) {
            return other.entries.size() < tuplet.entries.size() && has(other);
        });
    }

    // Whether the entry's notes are in a chord of the destination that is in no tuplet of that
    // time.
    bool IsOutside(const ReadTuplet& tuplet, const EXENTRY& was) const {
        const Frame* now = FrameNow(tuplet.staff, m_destination);
        if (now == nullptr || !HasMoved(tuplet, was)) {
            return false;
        }
        const auto chord = std::ranges::find_if(now->entries, [&was](const EXENTRY& entry) {
            return entry.elapsedTime == was.elapsedTime && entry.noteCount > was.noteCount &&
                   (entry.flags & EntryFlag::kGrace) == 0;
        });
        if (chord == now->entries.end() || (was.flags & EntryFlag::kGrace) != 0) {
            return false;
        }
        const bool voice2 = (chord->flags & EntryFlag::kVoice2) != 0;
        const auto runs = TupletRunsOf(now->entries, voice2, m_score.document->Records());
        return std::ranges::none_of(runs, [&](const TupletRun& run) {
            const Span span{now->entries[run.first].elapsedTime, EndOf(now->entries[run.last])};
            return span == SpanOf(tuplet);
        });
    }

    std::string NamesOfNotes(const EXENTRY& entry) const {
        std::string names;
        for (i16 i = 0; i < entry.noteCount; ++i) {
            names += (names.empty() ? "" : ", ") + NameOfNote(m_score, m_measure, entry.notes[i]);
        }
        return names;
    }

    const ImportedScore& m_score;
    const ScorePart& m_part;
    u16 m_measure;
    u16 m_destination;
    std::vector<ReadTuplet> m_read;
};

}  // namespace

void AddTupletRemarks(const ImportedScore& score, const ScorePart& part, u16 firstSlot,
                      u16 destination, const std::set<std::pair<u16, u16>>& changed,
                      std::vector<Remark>& remarks) {
    for (std::size_t i = 0; i < part.measures.size(); ++i) {
        const auto measure = static_cast<u16>(i + 1);
        const bool isChanged = std::ranges::any_of(part.staves, [&](const StaffVoices& staff) {
            return changed.contains({staff.staff, measure});
        });
        if (isChanged) {
            MeasureTuplets{score, part, measure, destination}.Add(firstSlot, remarks);
        }
    }
}

}  // namespace standin
