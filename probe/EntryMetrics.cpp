#include "probe/EntryMetrics.h"

#include <algorithm>
#include <cstring>

#include "probe/LastWritten.h"
#include "shell/host/callbacks.h"
#include "shell/host/output_room.h"

namespace probe {

namespace {

constexpr i32 kWholeNote = 4 * kQuarterNote;

bool HasStem(const EXENTRY& entry) {
    return (entry.flags & EntryFlag::kNote) != 0 && entry.duration < kWholeNote;
}

}  // namespace

void EntryMetrics::LookAt(EXFRAME& frame, i16 index, i32& lastLeft, i32& lastStart) {
    const EXENTRY entry = frame.entries[index];
    OutputRoom<ENTRYMETRICS> room;
    const i16 result = Host::GetEntryMetrics(&frame, index, room.Address());
    if ((entry.flags & EntryFlag::kIgnore) != 0) {
        m_hidden.Count(!room.IsWritten());
    }
    if (!room.IsWritten()) {
        return;
    }
    m_results.Count(result != 0);
    const ENTRYMETRICS metrics = room.Known();
    if (m_written == 0) {
        m_written = LastWritten([&](u8* memory) {
            Host::GetEntryMetrics(&frame, index, reinterpret_cast<ENTRYMETRICS*>(memory));
            Host::FreeEntryMetrics(reinterpret_cast<ENTRYMETRICS*>(memory));
        });
    }
    const i16 stem = metrics.stemDirection;
    m_stems.Count(HasStem(entry) ? stem == 1 || stem == -1 : stem == 0);
    if ((entry.flags & (EntryFlag::kGrace | EntryFlag::kVoice2)) == 0) {
        m_places.Count(metrics.left <= metrics.right &&
                       (entry.elapsedTime <= lastStart || metrics.left >= lastLeft));
        lastLeft = metrics.left;
        lastStart = entry.elapsedTime;
    }
    Host::FreeEntryMetrics(room.Address());
}

void EntryMetrics::Look(EXFRAME& frame) {
    i32 lastLeft = 0;
    i32 lastStart = kEndOfMeasure;
    for (i16 i = 0; i < frame.count; ++i) {
        LookAt(frame, i, lastLeft, lastStart);
    }
}

void EntryMetrics::Report(Findings& findings) const {
    findings.Begin(Text::kSizes);
    const std::string assumed = SayNumbers(Text::kAtMostBytes, sizeof(ENTRYMETRICS));
    if (m_written == 0) {
        findings.AddNotSeen("FX_GetEntryMetrics ENTRYMETRICS", assumed);
    } else {
        findings.Add("FX_GetEntryMetrics ENTRYMETRICS", assumed,
                     SayNumbers(Text::kBytes, m_written), m_written <= sizeof(ENTRYMETRICS));
    }
    findings.Begin(Text::kFreedoms);
    findings.Add("FX_GetEntryMetrics", Say(Text::kUsualDone), m_results);
    findings.Begin(Text::kFrames);
    findings.Add("ENTRYMETRICS", Say(Text::kMetricsHidden), m_hidden);
    findings.Add("ENTRYMETRICS stemDirection", Say(Text::kMetricsStem), m_stems);
    findings.Add("ENTRYMETRICS left, right", Say(Text::kMetricsPlace), m_places);
}

}  // namespace probe
