// Metrics of entries, and the last answer on special part extraction, kept for one command.
#pragma once

#include <tuple>

#include "shell/host/host_frames.h"

namespace FinPIMetricsCache {

// What an entry's metrics are kept under. entry is the host's entry number.
struct EntryKey {
    u16 document;
    u16 staff;
    i16 measure;
    u32 entry;

    friend bool operator<(const EntryKey& left, const EntryKey& right) noexcept {
        return std::tie(left.document, left.staff, left.measure, left.entry) <
               std::tie(right.document, right.staff, right.measure, right.entry);
    }
};

// The node stays where it is until ClearAll.
struct EntryLookup {
    ENTRYMETRICS& metrics;
    bool inserted;  // the metrics are all zero and for the caller to fill
};

EntryLookup FindEntryMetrics(const EntryKey& key);

// 1 when the staff is in the document's staff list for special part extraction. Loads the
// list's number once a document (a failure is posted) and rests on FX_InstToSlot, which asking
// again for the same document and staff does not call.
u16 SpecPartExtractionCmper(u16 document, u16 staff);

// Forgets everything.
void ClearAll();

}  // namespace FinPIMetricsCache
