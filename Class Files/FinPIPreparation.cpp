// What comes before a run: the saved setting, the Shift key, the region.
#include "Class Files/FinPI.h"
#include "Class Files/score/FinPIMetricsCache.h"
#include "platform/keyboard.h"
#include "shell/host/callbacks.h"

namespace {

constexpr u16 kScoreStaffList = 0;

}  // namespace

bool FinPI::Invoke(const EREGION* selection, const EREGION& wholeDocument) {
    if (m_item > GetLastCommandItem() && !ResolveSavedSetting()) {
        return false;
    }
    if (platform::ShiftKeyDown()) {
        m_skipDialog = m_skipDialog == 0 ? 1 : 0;
    }
    ChooseRegion(selection, wholeDocument);
    FinPIMetricsCache::ClearAll();
    return true;
}

void FinPI::ChooseRegion(const EREGION* selection, const EREGION& wholeDocument) {
    if (selection == nullptr) {
        m_region = wholeDocument;
        m_wholeMeasures = 1;
        m_wholeStaves = 1;
        m_noSelection = 1;
        return;
    }
    m_region = *selection;
    m_wholeMeasures = m_region.startMeasure == wholeDocument.startMeasure &&
                              m_region.endMeasure == wholeDocument.endMeasure
                          ? 1
                          : 0;
    m_wholeStaves = m_region.startStaffList == kScoreStaffList &&
                            m_region.endStaffList == kScoreStaffList &&
                            m_region.startSlot == wholeDocument.startSlot &&
                            m_region.endSlot == wholeDocument.endSlot
                        ? 1
                        : 0;
    m_noSelection = 0;
}
