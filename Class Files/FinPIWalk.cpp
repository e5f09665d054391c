// The walk over the measures and staves of a region.
#include <algorithm>
#include <utility>

#include "Class Files/FinPI.h"
#include "Class Files/ProgressCounter.h"
#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/foundation/FinPITrace.h"
#include "Class Files/score/document/FinPIMetricsCache.h"
#include "Class Files/score/document/FinPIStaffSystem.h"
#include "shell/host/callbacks.h"

namespace {

constexpr u16 kFirstStaffSystem = 1;

u64 Extent(i16 first, i16 last) {
    return last < first ? 0 : static_cast<u64>(last - first + 1);
}

// During a report the user may use a dialog or the menu, which report errors of their own and empty
// the slot. The run's error is kept elsewhere meanwhile.
bool ReportProgress(ProgressCounter& progress, i16 steps, i16 measure) {
    std::unique_ptr<FinPIException> ofTheRun = std::move(g_pendingError);
    const bool goesOn = progress.Report(steps, 0, measure, -1);
    g_pendingError = std::move(ofTheRun);
    return goesOn;
}

// 0 when the page records cannot be read.
i16 LastPage() {
    FinPIPage page{0};
    return page.LoadLast() != 0 ? static_cast<i16>(page.GetCmper1()) : i16{0};
}

// The number of the staff system that holds the measure, searching from the given one on. Updates a
// stale layout once, and leaves an error pending if that did not help. An error that is already
// pending comes from earlier music and stays.
u16 FindStaffSystem(i16 measure, u16 searchFrom) {
    const DocumentScope document;
    const bool wasPending = ErrorIsPending();
    const FinPIStaffSystem system{measure, searchFrom};
    if (wasPending || !ErrorIsPending() ||
        g_pendingError->m_msgID != FinPILoadEDataFailed::kMessage) {
        return system.GetCmper1();
    }
    g_pendingError.reset();
    Host::UpdateLayout(LastPage());
    return FinPIStaffSystem{measure, kFirstStaffSystem}.GetCmper1();
}

}  // namespace

i16 FinPI::ProcessCurrentDocument() {
    FinPIMetricsCache::ClearAll();
    u16 continueFlag = 1;
    const i16 result = DoProcessDocument(m_region, 0, 1, 1, 0, -1, 0, 0, &continueFlag);
    FinPIMetricsCache::ClearAll();
    return result;
}

// The only walk so far: one call per staff and measure, with a report after each.
i16 FinPI::DoProcessDocument(const EREGION& region, i16 /*walkMode*/, i16 /*reportStaves*/,
                             i16 /*reportMeasures*/, i16 /*reportLayers*/, i16 firstMeasure,
                             i16 /*measureHook*/, i16 /*skipMultimeasureRests*/,
                             u16* continueFlag) {
    u64 result{};
    EREGION selection{};
    EREGION wholeDocument{};
    Host::GetCurERegions(&result, &selection, &wholeDocument);
    if (wholeDocument.endMeasure == 0) {  // refused: a walk over nothing must not look like success
        PostError(
            FinPIAppError{"FinPI::DoProcessDocument", "Unable to read the document's extent."});
        *continueFlag = 0;
        return 0;
    }
    const i16 layers = Host::GetMaxLayers();
    const u64 workSize = Extent(region.startMeasure, region.endMeasure) *
                         Extent(region.startSlot, region.endSlot) * static_cast<u64>(layers);
    ProgressCounter progress{region, workSize};
    FinPITrace("Class Files\\FinPI", __LINE__, "FinPI::DoProcessDocument progress == 0x%lx.",
               progress.Handle());
    if (AllowProgress(workSize / ProgressCounter::kWorkUnit, layers) == 0) {
        progress.Disable();
    }
    if (PrepareDocument() == 0) {
        *continueFlag = 0;
    }
    const MeasureRange measures{std::max(firstMeasure, region.startMeasure),
                                std::min(region.endMeasure, wholeDocument.endMeasure)};
    ProcessEvery(region, measures, layers, progress, *continueFlag);
    if (*continueFlag != 0) {
        progress.MarkFinished();
    }
    return static_cast<i16>(*continueFlag);
}

void FinPI::ProcessEvery(const EREGION& region, MeasureRange measures, i16 layers,
                         ProgressCounter& progress, u16& continueFlag) {
    u16 staffSystem = kFirstStaffSystem;
    for (i32 i = measures.first; i <= measures.last && continueFlag != 0; ++i) {
        const auto measure = static_cast<i16>(i);
        staffSystem = FindStaffSystem(measure, staffSystem);
        if (ErrorIsPending()) {
            continueFlag = 0;
        }
        for (i32 slot = region.startSlot; slot <= region.endSlot && continueFlag != 0; ++slot) {
            const u16 staff = Host::SlotToInst(static_cast<i16>(slot), region.startStaffList);
            if (ProcessStaffMeasure(static_cast<i16>(slot), staff, measure, staffSystem) == 0) {
                continueFlag = 0;
            }
            if (!ReportProgress(progress, layers, measure)) {
                m_stop = 1;
                continueFlag = 0;
            }
        }
    }
}
