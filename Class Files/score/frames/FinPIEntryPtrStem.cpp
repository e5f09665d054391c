#include <utility>

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/document/FinPIMetricsCache.h"
#include "Class Files/score/frames/FinPIEntryPtr.h"
#include "shell/host/callbacks.h"
#include "shell/host/detail_flags.h"
#include "shell/host/output_room.h"

namespace {

constexpr i16 kUp = 1;
constexpr i16 kNoStem = 0;

bool CanBeBeamed(const FinPIEntryPtr& entry) {
    return entry && entry->duration > 0 && entry->duration < kQuarterNote;
}

bool StartsBeam(const FinPIEntryPtr& entry) {
    return entry.HasFlag(DetailFlag::kPrimaryBeamBreak);
}

// Whether two neighboring entries of a voice can share a beam.
bool AreBeamed(const FinPIEntryPtr& entry, const FinPIEntryPtr& following) {
    return CanBeBeamed(entry) && CanBeBeamed(following) && !StartsBeam(following) &&
           entry.IsGrace() == following.IsGrace();
}

}  // namespace

// The stem's direction as the host draws it; no stem when the entry has none, or no metrics.
i16 FinPIEntryPtr::AskStemDirection() const {
    if (HasFlag(EntryFlag::kIgnore)) {
        PostError(FinPIEntryNotVisibleError{});
        return kNoStem;
    }
    const FinPIMetricsCache::MeasureKey measure{m_document, StaffNumber(),
                                                static_cast<i16>(Measure())};
    const auto [metrics, inserted] = FinPIMetricsCache::FindEntryMetrics(
        {measure.document, measure.staff, measure.measure, Number()});
    if (inserted) {
        const DocumentScope scope{m_document};
        OutputRoom<ENTRYMETRICS> answer;
        if (scope) {
            Host::GetEntryMetrics(m_frame, m_index, answer.Address());
        }
        if (!answer.IsWritten()) {
            PostError(FinPIEntryNotVisibleError{});
            return kNoStem;
        }
        metrics = answer.Known();
        FinPIMetricsCache::NotePageView(measure, metrics.pageNumber != 0);
        Host::FreeEntryMetrics(answer.Address());
    }
    if (!FinPIMetricsCache::IsShownInPageView(measure)) {
        PostError(FinPINotPageViewVisibleError{});
    }
    return metrics.stemDirection;
}

// An entry without a stem, such as a rest, follows its beam.
i16 FinPIEntryPtr::BeamStemDirection() const {
    FinPIEntryPtr member = Shared();
    for (FinPIEntryPtr before = member.PreviousInVoice(); AreBeamed(before, member);
         before = member.PreviousInVoice()) {
        member = std::move(before);
    }
    for (;;) {
        if (member.Index() != m_index && !member.HasFlag(EntryFlag::kIgnore)) {
            const i16 direction = member.AskStemDirection();
            if (direction != kNoStem) {
                return direction;
            }
        }
        FinPIEntryPtr following = member.NextInVoice(true);
        if (!AreBeamed(member, following)) {
            return kUp;
        }
        member = std::move(following);
    }
}

i16 FinPIEntryPtr::StemDirection() const {
    if (!*this) {
        return kUp;
    }
    if (m_stemDirections != nullptr) {
        const auto known = m_stemDirections->find(Number());
        if (known != m_stemDirections->end()) {
            return known->second;
        }
    }
    i16 direction = AskStemDirection();
    if (direction == kNoStem) {
        direction = BeamStemDirection();
    }
    if (m_stemDirections != nullptr) {
        m_stemDirections->emplace(Number(), direction);
    }
    return direction;
}
