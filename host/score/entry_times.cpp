#include "host/score/entry_times.h"

#include "host/score/tags.h"
#include "host/score/time_position.h"
#include "shell/host/host_records.h"

namespace standin {
namespace {

constexpr i64 kLargestRatio = 64;
constexpr i64 kLongestSpan = i64{1} << 20U;
constexpr std::size_t kDeepestNesting = 4;

// A tuplet that entries still fall into.
struct OpenTuplet {
    i64 symbolicSpan;   // duration units as written
    i64 referenceSpan;  // duration units as played, in the tuplet around it
    TimePosition filled;
};

// The place in time that one voice has reached.
class VoiceClock {
public:
    explicit VoiceClock(TimePosition start) : m_position{start} {}

    TimePosition Position() const { return m_position; }

    void OpenTuplets(u32 entry, const RecordStore& records) {
        const RecordStore::Table& tuplets = records.OfTag(Tag::kTuplet);
        for (auto at = tuplets.lower_bound(RecordKey::OfEntry(entry));
             at != tuplets.end() && at->first.Entry() == entry; ++at) {
            const auto tuplet = FromBytes<EDTTuplet2005>(at->second);
            const i64 symbolic = i64{tuplet.symbolicCount} * tuplet.symbolicUnitDuration;
            const i64 reference = i64{tuplet.referenceCount} * tuplet.referenceUnitDuration;
            const bool isUsable =
                tuplet.symbolicCount > 0 && tuplet.referenceCount > 0 && symbolic > 0 &&
                reference > 0 && symbolic <= kLongestSpan && reference <= kLongestSpan &&
                symbolic <= reference * kLargestRatio && reference <= symbolic * kLargestRatio;
            if (isUsable && m_tuplets.size() < kDeepestNesting) {
                m_tuplets.push_back({symbolic, reference, TimePosition{}});
            }
        }
    }

    void Advance(i64 duration) {
        TimePosition time{duration};
        for (auto open = m_tuplets.rbegin(); open != m_tuplets.rend(); ++open) {
            time = time.Scaled(open->referenceSpan, open->symbolicSpan);
        }
        m_position = m_position + time;
        Fill(TimePosition{duration});
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

    TimePosition m_position;
    std::vector<OpenTuplet> m_tuplets;  // the innermost last
};

void TakeTime(EXENTRY& entry, VoiceClock& clock, const RecordStore& records) {
    const i32 start = clock.Position().Rounded();
    entry.elapsedTime = start;
    entry.actualDuration = 0;
    if ((entry.flags & EntryFlag::kGrace) == 0) {
        clock.OpenTuplets(entry.entryNumber, records);
        clock.Advance(entry.duration);
        entry.actualDuration = clock.Position().Rounded() - start;
    }
}

}  // namespace

void ComputeTimes(std::vector<EXENTRY>& entries, const RecordStore& records) {
    VoiceClock voice1{TimePosition{}};
    VoiceClock voice2{TimePosition{}};
    for (EXENTRY& entry : entries) {
        if ((entry.flags & EntryFlag::kVoice2) != 0) {
            TakeTime(entry, voice2, records);
            continue;
        }
        if ((entry.flags & EntryFlag::kLaunchVoice2) != 0) {
            voice2 = VoiceClock{voice1.Position()};
        }
        TakeTime(entry, voice1, records);
    }
}

}  // namespace standin
