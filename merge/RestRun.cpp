#include "merge/RestRun.h"

#include <algorithm>

#include "Class Files/score/frames/FinPIEntryPtr.h"
#include "Class Files/score/frames/ScaledTime.h"
#include "merge/FramePair.h"
#include "merge/Plyweld.h"

namespace {

bool IsSelected(const FramePair& frames, const FinPIEntryPtr& entry) {
    return frames.staffSelected && entry.Document() == frames.region.DocumentID() &&
           frames.region.ContainsTime(static_cast<i16>(entry.Measure()), entry.ScaledPosition());
}

bool IsReplaceable(const FinPIEntryPtr& entry) {
    return !entry.IsNote() && !entry.HasFlag(EntryFlag::kLaunchVoice2);
}

// The end of the selection in the measure, or of the source's music if that is earlier. In the
// staff's duration.
i32 FillLimit(const FramePair& frames) {
    const i32 sourceEnd = frames.source.Duration();
    const i32 nominal = frames.destination.NominalMeasureDuration();
    const i32 staff = frames.destination.StaffMeasureDuration();
    if (frames.destination.Measure() != frames.region.endMeasure ||
        frames.region.endPosition >= ScaleToNominal(sourceEnd, nominal, staff)) {
        return sourceEnd;
    }
    // The reverse conversion: from the measure's duration to the staff's.
    return std::min(ScaleToNominal(frames.region.endPosition + 1, staff, nominal), sourceEnd);
}

// Whether time missing from here on, in the staff's duration, lies after the start of the
// selection.
bool IsAfterSelectionStart(const FramePair& frames, i32 time) {
    return frames.destination.Measure() != frames.region.startMeasure ||
           ScaleToNominal(time, frames.destination.NominalMeasureDuration(),
                          frames.destination.StaffMeasureDuration()) >= frames.region.startPosition;
}

}  // namespace

i16 Plyweld::FindRestRun(const FramePair& frames, i16 startIndex, RestRun& run) const {
    run = RestRun{};
    const i32 limit = FillLimit(frames);
    FinPIEntryPtr entry;
    i32 time = 0;
    if (startIndex >= 0) {
        entry = frames.destination.EntryAt(startIndex);
        time = entry ? entry->elapsedTime : frames.destination.Duration();
    }
    for (; entry; entry = entry.NextInVoice(true)) {
        time += entry->actualDuration;
        if (!IsSelected(frames, entry)) {
            continue;
        }
        if (IsReplaceable(entry)) {
            run.start = run.start < 0 ? entry.Index() : run.start;
            run.count = static_cast<i16>(entry.Index() - run.start + 1);
            run.duration += entry->actualDuration;
        } else if (run.start >= 0) {
            return 1;
        }
    }
    if (time < limit && IsAfterSelectionStart(frames, time)) {
        run.duration += limit - time;
        run.start = run.start < 0 ? frames.destination.Count() : run.start;
    }
    return run.start >= 0 ? 1 : 0;
}
