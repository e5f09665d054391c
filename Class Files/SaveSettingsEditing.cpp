// What the user does in the Save Settings dialog before OK: the list and the controls that
// show its selected entry.
#include "Class Files/FinPI.h"
#include "Class Files/FinPISaveSettingsDlg.h"
#include "Class Files/SaveSettingsControls.h"
#include "Class Files/settings/SavedSettings.h"
#include "shell/host/callbacks.h"

namespace Control = SaveSettingsControl;

namespace {

constexpr std::size_t kComparedUnits = 128;

// A list shows names as long as the field allows; records keep less.
bool SameName(const std::u16string& left, const std::u16string& right) {
    return left.compare(0, kComparedUnits, right, 0, kComparedUnits) == 0;
}

}  // namespace

bool FinPISaveSettingsDlg::HasRoom() const {
    return List().Count() < SavedSettings::kMaxPerCommand;
}

bool FinPISaveSettingsDlg::CanDelete(SavedSettingItem item) {
    const SavedSettingPtr* stored = StoredSetting(item);
    // A setting stored by an older version may have had no identifier when the command loaded it.
    return stored != nullptr &&
           item.StoredNumber() != SavedSettings::StoredNumber(CommandID(), m_numberInUse) &&
           stored->Header().identifier != m_owner->SavedSettingIdentifier();
}

void FinPISaveSettingsDlg::UpdateButtons() {
    const SavedSettingList list = List();
    m_currentPosition = list.Selected();
    const SavedSettingItem item = list.Item(m_currentPosition);
    Host::EnableDlgItem(m_window, Control::kDelete, static_cast<i16>(CanDelete(item) ? 1 : 0));
    Host::EnableDlgItem(m_window, Control::kAdd, static_cast<i16>(HasRoom() ? 1 : 0));
    m_skipBox.SetValue(item.SkipsDialog() ? 1 : 0);
    m_nameField.SetText(list.Name(m_currentPosition).c_str());
}

void FinPISaveSettingsDlg::CommitEditedName(i16 chosen) {
    SavedSettingList list = List();
    const i16 current = m_currentPosition;
    const SavedSettingItem item{list.Item(current).StoredNumber(), m_skipBox.GetValue() != 0};
    const std::u16string edited = NameField();
    if (edited.empty() || SameName(edited, list.Name(current))) {
        list.SetItem(current, item);
        UpdateButtons();
        return;
    }
    list.Remove(current);
    const i16 inserted = list.InsertSorted(edited, item, true);
    if (chosen == current) {
        chosen = inserted;
    } else {
        if (chosen > current) {
            --chosen;
        }
        if (chosen >= inserted) {
            ++chosen;
        }
    }
    list.Select(chosen);
    UpdateButtons();
}

void FinPISaveSettingsDlg::AddNewItem(bool commitFirst) {
    if (commitFirst && List().Count() > 0) {
        CommitEditedName(m_currentPosition);
    }
    const SavedSettingItem item{0, m_skipBox.GetValue() != 0};
    SavedSettingList list = List();
    i16 position = 0;
    while (position == 0) {
        position = list.InsertSorted(DefaultSettingName(m_nextDefaultNumber++), item, false);
    }
    list.Select(position);
    UpdateButtons();
}

void FinPISaveSettingsDlg::LeaveButton(bool stillEnabled) {
    if (!stillEnabled) {
        m_nameField.SetFocus();
    }
}

i16 FinPISaveSettingsDlg::HandleCommand(WindowHandle window, u16 control, u8* final) {
    switch (control) {
        case Control::kOk:
            Accept(final);
            return 1;
        case Control::kCancel:
            *final = 1;
            CloseDialog(window);
            return 1;
        case Control::kList:
            if (const i16 selected = List().Selected();
                selected > 0 && selected != m_currentPosition) {
                CommitEditedName(selected);
            }
            return 1;
        case Control::kName:
            return 1;
        case Control::kAdd:
            AddNewItem(true);
            LeaveButton(HasRoom());
            return 1;
        case Control::kDelete:
            List().RemoveSelected();
            UpdateButtons();
            LeaveButton(CanDelete(List().Item(List().Selected())));
            return 1;
        case Control::kDeleteAll:
            List().Clear();
            UpdateButtons();
            Accept(final);
            return 1;
        case Control::kSkipDialog:
            m_skipBox.Toggle();
            return 1;
        case Control::kUseSubmenu:
            m_submenuBox.Toggle();
            return 1;
        default:
            return 0;
    }
}
