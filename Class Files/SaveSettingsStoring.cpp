// What OK in the Save Settings dialog does, and how a command dialog opens it.
#include <algorithm>
#include <vector>

#include "Class Files/FinPI.h"
#include "Class Files/FinPISaveSettingsDlg.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/foundation/FinPIUtil.h"
#include "Class Files/interface/FinPIAlert.h"
#include "Class Files/settings/SavedSettings.h"

void FinPISaveSettingsDlg::Accept(u8* final) {
    if (List().Count() > 0) {
        // Gives the entry the edited name, made unique, and sorts it into the list.
        CommitEditedName(m_currentPosition);
    }
    if (!CommitSavedSettings()) {
        return;
    }
    m_accepted = 1;
    *final = 1;
    CloseDialog(m_window);
}

bool FinPISaveSettingsDlg::ConfirmStaleMenu() {
    if (g_savedSettingsChanged != 0 ||
        ShowAlert(m_owner, m_window, AlertType::kYesNo, FinPIAlert::kStaleMenuQuestion) ==
            AlertAnswer::kYes) {
        return true;
    }
    // Only Yes may be remembered.
    ZKFX_DeleteSettings(FinPIAlert::kSettingName, static_cast<i16>(FinPIAlert::kStaleMenuQuestion),
                        FinPIAlert::kStoredUnder);
    return false;
}

bool FinPISaveSettingsDlg::CommitSavedSettings() {
    if (!ConfirmStaleMenu()) {
        return false;
    }
    g_pendingError.reset();  // a selection that could not be described, for example
    for (SavedSettingPtr& setting : m_storedSettings) {
        setting.written = false;
    }
    m_selectedNumber = m_numberInUse;
    m_selectedIdentifier = 0;
    const i16 count = List().Count();
    const i16 selected = List().Selected();
    for (i16 position = 1; position <= count; ++position) {
        WriteEntry(position, selected);
    }
    if (ErrorIsPending()) {
        m_loadedCount = std::max(m_loadedCount, count);
        ReportPendingError();
        return false;
    }
    ForgetDeletedSettings(count);
    g_savedSettingsChanged = 1;
    return true;
}

SavedSettingPtr FinPISaveSettingsDlg::NewSetting() const {
    const u32 size = m_owner->GetSettingsSize();
    SavedSettingPtr setting{size};
    setting.Header().commandItem = m_owner->CommandItem();
    std::copy_n(static_cast<const u8*>(m_owner->GetSettings()), size,
                static_cast<u8*>(setting.Settings()));
    return setting;
}

void FinPISaveSettingsDlg::WriteEntry(i16 position, i16 selected) {
    const SavedSettingItem item = List().Item(position);
    SavedSettingPtr* stored = StoredSetting(item);
    SavedSettingPtr added = NewSetting();
    SavedSettingPtr& setting = stored != nullptr ? *stored : added;
    SavedSettingHeader& header = setting.Header();
    setting.SetName(List().Name(position));
    header.skipDialog = item.SkipsDialog() ? 1 : 0;
    if (position == 1) {
        const auto others = static_cast<u16>(header.flags & ~SavedSettingFlag::kUseSubmenu);
        header.flags = m_submenuBox.GetValue() != 0
                           ? static_cast<u16>(others | SavedSettingFlag::kUseSubmenu)
                           : others;
    }
    GiveIdentifier(header);
    if (stored == nullptr) {
        m_owner->OnSavedSettingAdded(header.identifier);
    }
    setting.PutToFile(SavedSettings::StoredNumber(CommandID(), position));
    setting.written = true;
    if (position == selected) {
        m_selectedNumber = position;
        m_selectedIdentifier = header.identifier;
    }
}

void FinPISaveSettingsDlg::ForgetDeletedSettings(i16 count) {
    for (i16 number = static_cast<i16>(count + 1); number <= m_loadedCount; ++number) {
        ZKFX_DeleteSettings(SavedSettings::kName, SavedSettings::StoredNumber(CommandID(), number),
                            SavedSettings::kOwner);
    }
    for (const SavedSettingPtr& setting : m_storedSettings) {
        if (!setting.written) {
            m_owner->ForgetWindowPlace(setting.Header().identifier);
        }
    }
}

void FinPIDialog::RunSaveSettingsDialog(WindowHandle window) {
    // The dialog's values go into the saved setting alone, not into the command's own record.
    auto* settings = static_cast<u8*>(m_owner->GetSettings());
    const std::vector<u8> kept(settings, settings + m_owner->GetSettingsSize());
    if (!kept.empty()) {
        CopyDialogToConfigData(window);
    }
    FinPISaveSettingsDlg dialog{m_owner, m_positionKey};
    RememberWindowPlace(window);
    if (dialog.LoadWindowPosition(0) == 0) {
        dialog.SetPlace(static_cast<i16>(m_left + 10), static_cast<i16>(m_top + 30));
    }
    constexpr u16 kModal = 1;
    dialog.ShowDialogWindow(window, kModal);
    if (dialog.WasAccepted()) {
        m_owner->UseSavedSetting(dialog.SelectedNumber(), dialog.SelectedIdentifier());
    }
    std::ranges::copy(kept, settings);
}
