// What the tests of saved settings share: stored records, and the Save Settings dialog of a
// command.
#pragma once

#include <cstring>
#include <string>

#include "Class Files/FinPISaveSettingsDlg.h"
#include "Class Files/settings/SavedSettings.h"
#include "host/score/application.h"
#include "tests/unit/interface_support.h"

inline constexpr u16 kCommand = 22000;

// As the dialog's template numbers them.
namespace Control {
constexpr u16 kOk = 1;
constexpr u16 kCancel = 2;
constexpr u16 kListLabel = 3;
constexpr u16 kList = 5;
constexpr u16 kNameLabel = 4;
constexpr u16 kName = 7;
constexpr u16 kAdd = 8;
constexpr u16 kDelete = 9;
constexpr u16 kDeleteAll = 10;
constexpr u16 kSkipDialog = 11;
constexpr u16 kUseSubmenu = 12;
}  // namespace Control

// The command dialog: what it shows is put into the settings record when asked.
class CommandDialog final : public NotingDialog {
public:
    explicit CommandDialog(SettingsCommand& command)
        : NotingDialog{&command, nullptr, nullptr}, m_command{command} {}

    void CopyDialogToConfigData(WindowHandle) override {
        std::memcpy(m_command.settings, "dlg!", 4);
    }

private:
    SettingsCommand& m_command;
};

class SavedSettingsTest : public InterfaceTest {
protected:
    SavedSettingsTest() { g_savedSettingsChanged = 1; }

    // One that skips the dialog is also gathered in a submenu.
    static void Store(i16 number, const std::u16string& name, u16 identifier, u16 skip = 0) {
        SavedSettingPtr record{4};
        record.SetName(name);
        record.Header().identifier = identifier;
        record.Header().skipDialog = skip;
        record.Header().flags = skip;
        record.Header().hostVersion = 1;
        std::memcpy(record.Settings(), "abcd", 4);
        ASSERT_EQ(record.PutToFile(SavedSettings::StoredNumber(kCommand, number)), 1);
    }
    // Settings named a, b, c and so on, with identifiers from 11.
    static void StoreLetters(i16 count) {
        for (i16 number = 1; number <= count; ++number) {
            Store(number, std::u16string(1, static_cast<char16>(u'`' + number)),
                  static_cast<u16>(10 + number));
        }
    }
    // "name identifier skip settings" of each saved setting in turn.
    static Notes Stored() {
        Notes all;
        SavedSettingPtr record{4};
        for (i16 number = 1; record.GetFromFile(SavedSettings::StoredNumber(kCommand, number)) != 0;
             ++number) {
            const SavedSettingHeader& header = record.Header();
            all.push_back(std::string{header.name} + ' ' + std::to_string(header.identifier) + ' ' +
                          std::to_string(header.skipDialog) + ' ' +
                          std::string{static_cast<const char*>(record.Settings()), 4});
        }
        return all;
    }
    static std::size_t Alerts() { return standin::App().alerts.size(); }
    static void PutSettings(i16 number) {
        FinPISaveSettingsDlg::PutSavedSettings(kCommand, number, "wxyz", 4);
    }
    void Run(standin::DialogDesk::Script script) {
        OpenDialog& open = Show(dialog);
        desk.Then(std::move(script));
        dialog.RunSaveSettingsDialog(&open.window);
        EXPECT_EQ(desk.ScriptsLeft(), 0U);
        dialog.CloseDialog(&open.window);
    }

    CommandDialog dialog{command};
};
