#include "merge/SourceSpan.h"

#include "Class Files/score/frames/FinPIEntryPtr.h"

i16 FindSourceSpan(const FinPITGFPtr& source, i32 startTime, i32 duration, SourceSpan& span) {
    span = SourceSpan{};
    const i32 endTime = startTime + duration;
    bool endsExactly = false;
    for (FinPIEntryPtr entry = source.EntryAt(0); entry; entry = entry.NextInVoice(true)) {
        const i32 time = entry->elapsedTime;
        if (time == startTime && span.first < 0) {
            span.first = entry.Index();
        }
        if (time > startTime && span.first < 0) {
            return 0;
        }
        if (time == endTime) {
            span.count = static_cast<i16>(entry.Index() - span.first);
            return span.count > 0 ? 1 : 0;
        }
        if (time > endTime) {
            return 0;
        }
        if (time + entry->actualDuration == endTime) {
            endsExactly = true;
        }
    }
    if (!endsExactly || span.first < 0) {
        return 0;
    }
    span.count = static_cast<i16>(source.Count() - span.first);
    return span.count > 0 ? 1 : 0;
}
