// The preparation of a run: the saved setting, the Shift key, the region.
#include <utility>

#include "Class Files/FinPI.h"
#include "Class Files/score/document/FinPIMetricsCache.h"
#include "Class Files/score/region/FinPIRegion.h"
#include "Class Files/settings/SavedSettings.h"
#include "platform/keyboard.h"
#include "shell/host/callbacks.h"

namespace {

constexpr u16 kScoreStaffList = 0;
constexpr u16 kStaleMenuText = 20004;

// Converts a region whose ends use different staff lists to a single list: the start's if it
// contains the last staff, else the score's own.
EREGION InOneStaffList(const EREGION& selection) {
    const u16 lastStaff = Host::SlotToInst(selection.endSlot, selection.endStaffList);
    const bool fits = Host::InstToSlot(lastStaff, selection.startStaffList) != 0;
    FinPIRegion region{selection, Host::GetCurrentEnigmaDocument()};
    region.ChangeToIUList(fits ? selection.startStaffList : kScoreStaffList);
    if (region.startSlot > region.endSlot) {  // the order of staves differs between lists
        std::swap(region.startSlot, region.endSlot);
    }
    return region;
}

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

bool FinPI::ResolveSavedSetting() {
    if (g_savedSettingsChanged != 0) {
        Host::AlertMessage(m_ownerWindow, i16{0}, kStaleMenuText, nullptr);
        return false;
    }
    m_savedSetting = static_cast<i16>(m_item - GetLastCommandItem());
    if (ReadSavedSetting(GetCommandID(), m_savedSetting, m_savedSettingName, &m_commandItem,
                         &m_skipDialog, &m_savedSettingID, nullptr) == 0) {
        SavedSettings::ReportMissing(GetCommandID(), m_savedSetting, "FinPI::Invoke",
                                     "Saved settings for menu item not found.");
        return false;
    }
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
    m_region = selection->startStaffList == selection->endStaffList ? *selection
                                                                    : InOneStaffList(*selection);
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
