#include "merge/Skeleton.h"

#include "Class Files/score/frames/FinPIEntryPtr.h"
#include "merge/EntryTools.h"
#include "shell/host/detail_flags.h"

namespace {

bool IsFullySelected(const FramePair& frames) {
    const EREGION& region = frames.region;
    const i16 measure = static_cast<i16>(frames.destination.Measure());
    if (measure < region.startMeasure || measure > region.endMeasure ||
        (measure == region.startMeasure && region.startPosition > 0)) {
        return false;
    }
    return measure != region.endMeasure || region.endPosition == kEndOfMeasure ||
           region.endPosition + 1 >= frames.destination.NominalMeasureDuration();
}

}  // namespace

bool FitSkeleton(FramePair& frames) {
    if (frames.source.Count() == 0 || frames.destination.Count() != 0 || IsFullySelected(frames)) {
        return true;
    }
    i16 index = 0;
    bool timesAreStale = false;
    for (FinPIEntryPtr entry = frames.source.EntryAt(0); entry; entry = entry.NextInVoice(true)) {
        if (entry.IsGrace() || frames.destination.InsertEntries(index, 1) == 0) {
            continue;
        }
        MakeRest(frames.destination.EntryAt(index), entry->duration, frames.hideRests);
        if (frames.destination.ReloadTGF() == 0) {
            return false;
        }
        frames.destination.EntryAt(index).CopyDetailsFrom(kMirroredRestDetails, entry);
        frames.destination.SaveTGF();
        timesAreStale = entry.HasFlag(DetailFlag::kTuplet);
        ++index;
    }
    frames.preFilled = true;
    // The last tuplet changed times only in the stored frame.
    return !timesAreStale || frames.destination.ReloadTGF() != 0;
}
