// Rest filling: source entries replace destination rests of exactly the same time and position.
#include "Class Files/score/frames/FinPIEntryPtr.h"
#include "merge/FramePair.h"
#include "merge/Plyweld.h"
#include "merge/RestReplacement.h"
#include "merge/Skeleton.h"

namespace {

// Missing time begins where the destination's entries end.
i32 StartTime(const FramePair& frames, const RestRun& run) {
    const FinPIEntryPtr first = frames.destination.EntryAt(run.start);
    return first ? first->elapsedTime : frames.destination.Duration();
}

}  // namespace

i16 Plyweld::FillRestRuns(FramePair& frames) {
    if (!FitSkeleton(frames)) {
        return 0;
    }
    std::set<u32> graceRests;
    RestRun run;
    for (i16 next = 0; FindRestRun(frames, next, run) != 0;) {
        const i32 startTime = StartTime(frames, run);
        if (frames.source.Count() == 0 || frames.source.Duration() <= startTime) {
            break;
        }
        SourceSpan span;
        if (FindSourceSpan(frames.source, startTime, run.duration, span) != 0 &&
            MayReplace(frames, run, span, startTime)) {
            switch (ReplaceRests(frames, run, span, graceRests)) {
                case Replacement::kDone:
                    run.count = span.count;
                    break;
                case Replacement::kRefused:
                    break;
                case Replacement::kFailed:
                    return 0;
            }
        }
        next = static_cast<i16>(run.start + run.count);
        if (next >= frames.destination.Count()) {
            break;
        }
    }
    frames.source.DeleteEntries(graceRests);
    if (frames.preFilled) {
        frames.destination.ReduceEntries(false);
    }
    return frames.destination.SaveTGF();
}
