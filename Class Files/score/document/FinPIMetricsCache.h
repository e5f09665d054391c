// Metrics of measures and entries, and the last answers on page view and on special part
// extraction, kept for one command.
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

// What a measure's metrics are kept under.
struct MeasureKey {
    u16 document;
    u16 staff;
    i16 measure;

    friend bool operator<(const MeasureKey& left, const MeasureKey& right) noexcept {
        return std::tie(left.document, left.staff, left.measure) <
               std::tie(right.document, right.staff, right.measure);
    }
};

// The host's metrics of a measure; null and for the caller to fill when they are not known.
// What it puts there, ClearAll gives back with FX_FreeMeasureMetrics.
void*& FindMeasureMetrics(const MeasureKey& key);

// Whether page view shows the measure, according to its entries' metrics. Only the last measure is
// known; all others count as shown.
void NotePageView(const MeasureKey& key, bool isShown);
bool IsShownInPageView(const MeasureKey& key);

// 1 when the staff is in the document's staff list for special part extraction. Loads the list's
// number once per document (a failure is posted) and calls FX_InstToSlot, but not again for the
// same document and staff.
u16 SpecPartExtractionCmper(u16 document, u16 staff);

// Forgets everything.
void ClearAll();

}  // namespace FinPIMetricsCache
