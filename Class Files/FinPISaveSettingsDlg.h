// The dialog in which the user keeps a command's settings under names: adds, renames, deletes
// and flags saved settings. Nothing is stored before OK, and then all at once.
#pragma once

#include <string>
#include <vector>

#include "Class Files/interface/FinPICheckBox.h"
#include "Class Files/interface/FinPIDialog.h"
#include "Class Files/interface/FinPIEditUnicodeText.h"
#include "Class Files/settings/SavedSettingList.h"
#include "Class Files/settings/SavedSettingPtr.h"

class FinPISaveSettingsDlg : public FinPIDialog {
public:
    // commandKey: the command's name; names of new saved settings begin with it. The owner's
    // settings record holds what is to be saved while the dialog is open.
    FinPISaveSettingsDlg(FinPI* owner, const char16* commandKey);

    i16 OnInitializeWindow(WindowHandle window) override;
    void PrepareControls(WindowHandle window) override;
    i16 HandleCommand(WindowHandle window, u16 control, u8* final) override;

    // After OK: the number and the identifier of the entry that was selected.
    i16 SelectedNumber() const noexcept { return m_selectedNumber; }
    u16 SelectedIdentifier() const noexcept { return m_selectedIdentifier; }

    // Rewrites the settings part of a saved setting; reports an error if it cannot be written or
    // does not exist, as with number 0.
    static void PutSavedSettings(u16 commandID, i16 number, const void* settings, u32 size);

protected:
    // A command without the option leaves the row out.
    bool m_hideSkipOption = false;
    bool m_hideSubmenuOption = false;

private:
    u16 CommandID() const;
    SavedSettingList List() const noexcept;
    std::u16string NameField();
    std::u16string DefaultSettingName(u16 number) const;
    // The loaded record of an entry; null for an entry that was added.
    SavedSettingPtr* StoredSetting(SavedSettingItem item);

    void ListStoredSettings();
    bool LoadStoredSettings();
    bool LoadStoredSetting(i16 number);
    void SetUpOptionRows(WindowHandle window);
    void SelectFirstEntry();

    bool HasRoom() const;
    // It was stored before, and is not the one in use.
    bool CanDelete(SavedSettingItem item);
    void UpdateButtons();
    // Called after a button was pressed. If it is disabled now, it must not keep the keyboard focus
    // or pass it to the next button, where the same key would do something else.
    void LeaveButton(bool stillEnabled);
    void CommitEditedName(i16 chosen);
    void AddNewItem(bool commitFirst);
    bool CommitSavedSettings();
    bool ConfirmStaleMenu();
    void WriteEntry(i16 position, i16 selected);
    SavedSettingPtr NewSetting() const;
    void GiveIdentifier(SavedSettingHeader& header);
    void ForgetDeletedSettings(i16 count);
    void Accept(u8* final);

    const std::u16string m_commandKey;
    u16 m_nextDefaultNumber = 1;
    i16 m_loadedCount = 0;    // the highest number that may be stored
    const i16 m_numberInUse;  // the owner's saved setting at the opening; 0 = none
    i16 m_selectedNumber;
    i16 m_currentPosition = 0;  // the list position that the controls show
    u16 m_nextIdentifier = 0;   // the highest one met, or the last one given
    u16 m_selectedIdentifier = 0;
    std::vector<SavedSettingPtr> m_storedSettings;  // as loaded, by number
    FinPIEditUnicodeText m_nameField;
    FinPICheckBox m_skipBox;
    FinPICheckBox m_submenuBox;
};
