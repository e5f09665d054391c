#include "host/score/time/entry_times.h"

#include "host/score/records/tags.h"
#include "host/score/time/time_position.h"
#include "shell/host/host_records.h"

namespace standin {
namespace {

constexpr i64 kLargestRatio = 64;
constexpr i64 kLongestSpan = i64{1} << 20U;
constexpr std::size_t kDeepestNesting = 4;

// A tuplet that is not full yet.
struct OpenTuplet {
    i64 symbolicSpan;   // duration units as written
    i64 referenceSpan;  // duration units as played, in the tuplet around it
    TimePosition filled;
    std::size_t run;  // its place among the runs
};

// The time that one voice has reached.
class VoiceClock {
public:
    explicit VoiceClock(TupletRounding rounding) : m_rounding{rounding} {}

    TimePosition Position() const { return m_position; }
    // The time reported for the position.
    i32 Reported() const { return m_reported; }
    std::vector<TupletRun>& Runs() { return m_runs; }

    // The next entry starts outside all tuplets.
    void CloseTuplets() { m_tuplets.clear(); }

    // place: of the entry, for the runs.
    void OpenTuplets(u32 entry, std::size_t place, bool isGrace, const RecordStore& records) {
        const RecordStore::Table& tuplets = records.OfTag(Tag::kTuplet);
        for (auto at = tuplets.lower_bound(RecordKey::OfEntry(entry));
             at != tuplets.end() && at->first.Entry() == entry; ++at) {
            const auto tuplet = FromBytes<EDTTuplet2005>(at->second);
            const i64 symbolic = i64{tuplet.symbolicCount} * tuplet.symbolicUnitDuration;
            const i64 reference = i64{tuplet.referenceCount} * tuplet.referenceUnitDuration;
            const bool isUsable =
                !isGrace && tuplet.symbolicCount > 0 && tuplet.referenceCount > 0 && symbolic > 0 &&
                reference > 0 && symbolic <= kLongestSpan && reference <= kLongestSpan &&
                symbolic <= reference * kLargestRatio && reference <= symbolic * kLargestRatio;
            const int outer = m_tuplets.empty() ? -1 : static_cast<int>(m_tuplets.back().run);
            m_runs.push_back({place, place, outer, &at->second});
            if (isUsable && m_tuplets.size() < kDeepestNesting) {
                m_tuplets.push_back({symbolic, reference, TimePosition{}, m_runs.size() - 1});
            }
        }
    }

    void Advance(i64 duration, std::size_t place) {
        for (const OpenTuplet& open : m_tuplets) {
            m_runs[open.run].last = place;
        }
        TimePosition time{duration};
        for (auto open = m_tuplets.rbegin(); open != m_tuplets.rend(); ++open) {
            time = time.Scaled(open->referenceSpan, open->symbolicSpan);
        }
        m_position = m_position + time;
        Fill(TimePosition{duration});
        const bool addsUp = m_rounding == TupletRounding::kWholeUnits && !m_tuplets.empty();
        m_reported = addsUp ? m_reported + static_cast<i32>(time.Whole()) : m_position.Rounded();
    }

private:
    // Counts a written duration into the innermost tuplet and closes those that are full.
    void Fill(TimePosition written) {
        while (!m_tuplets.empty()) {
            OpenTuplet& innermost = m_tuplets.back();
            innermost.filled = innermost.filled + written;
            if (innermost.filled < TimePosition{innermost.symbolicSpan}) {
                return;
            }
            written = innermost.filled.Scaled(innermost.referenceSpan, innermost.symbolicSpan);
            m_tuplets.pop_back();
        }
    }

    TupletRounding m_rounding;
    TimePosition m_position;
    i32 m_reported = 0;
    std::vector<OpenTuplet> m_tuplets;  // the innermost last
    std::vector<TupletRun> m_runs;
};

bool IsGrace(const EXENTRY& entry) {
    return (entry.flags & EntryFlag::kGrace) != 0;
}

// Calls visit(place, start, clock) for each entry, with the clock at the entry's end.
template <typename Visit>
void ForEachTime(const std::vector<EXENTRY>& entries, const RecordStore& records,
                 TupletRounding rounding, Visit visit) {
    VoiceClock voice1{rounding};
    VoiceClock voice2{rounding};
    for (std::size_t place = 0; place < entries.size(); ++place) {
        const EXENTRY& entry = entries[place];
        const bool isVoice2 = (entry.flags & EntryFlag::kVoice2) != 0;
        if (!isVoice2 && (entry.flags & EntryFlag::kLaunchVoice2) != 0) {
            voice2 = voice1;
            voice2.CloseTuplets();
        }
        VoiceClock& clock = isVoice2 ? voice2 : voice1;
        const i32 start = clock.Reported();
        if (!IsGrace(entry)) {
            clock.OpenTuplets(entry.entryNumber, place, false, records);
            clock.Advance(entry.duration, place);
        }
        visit(place, start, clock);
    }
}

}  // namespace

void ComputeTimes(std::vector<EXENTRY>& entries, const RecordStore& records,
                  TupletRounding rounding) {
    ForEachTime(entries, records, rounding,
                [&entries](std::size_t place, i32 start, const VoiceClock& clock) {
                    entries[place].elapsedTime = start;
                    entries[place].actualDuration = clock.Reported() - start;
                });
}

std::vector<TimePosition> ExactEndsOf(const std::vector<EXENTRY>& entries,
                                      const RecordStore& records) {
    std::vector<TimePosition> ends;
    ends.reserve(entries.size());
    ForEachTime(
        entries, records, TupletRounding::kBothEnds,
        [&ends](std::size_t, i32, const VoiceClock& clock) { ends.push_back(clock.Position()); });
    return ends;
}

std::vector<TupletRun> TupletRunsOf(const std::vector<EXENTRY>& entries, bool voice2,
                                    const RecordStore& records) {
    VoiceClock clock{TupletRounding::kBothEnds};
    for (std::size_t place = 0; place < entries.size(); ++place) {
        const EXENTRY& entry = entries[place];
        if (((entry.flags & EntryFlag::kVoice2) != 0) != voice2) {
            if (voice2 && (entry.flags & EntryFlag::kLaunchVoice2) != 0) {
                clock.CloseTuplets();
            }
            continue;
        }
        clock.OpenTuplets(entry.entryNumber, place, IsGrace(entry), records);
        if (!IsGrace(entry)) {
            clock.Advance(entry.duration, place);
        }
    }
    return std::move(clock.Runs());
}

}  // namespace standin
