// What the tests of dialogs and their controls share.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "Class Files/FinPI.h"
#include "Class Files/interface/FinPIDialog.h"
#include "platform/headless/session.h"
#include "tests/unit/support/dialog_desk.h"
#include "tests/unit/support/stand_in.h"

using OpenDialog = standin::DialogDesk::OpenDialog;
using Names = std::vector<std::u16string>;
using Notes = std::vector<std::string>;

// A command that only has settings.
class SettingsCommand final : public FinPI {
public:
    SettingsCommand() noexcept : FinPI{nullptr, 2, 22000} {}

    i16 Start(const EREGION* /*selection*/, const EREGION* /*wholeDocument*/) override { return 0; }
    u32 GetSettingsSize() const override { return 4; }
    void* GetSettings() override { return settings; }
    const char16* GetName() const override { return u"Plyweld"; }
    void OnSavedSettingAdded(u16 identifier) override { added.push_back(identifier); }
    void ForgetWindowPlace(u16 identifier) override { forgotten.push_back(identifier); }

    char settings[5] = "....";
    std::vector<u16> added;
    std::vector<u16> forgotten;
};

// What a dialog gives for a command, and whether that command ended it.
inline std::pair<i16, u8> Handle(OpenDialog& open, u16 control) {
    u8 final = 0;
    auto* const dialog = static_cast<FinPIDialog*>(open.object);
    const i16 result = dialog->HandleCommand(&open.window, control, &final);
    return {result, final};
}

using Handled = std::pair<i16, u8>;

// A dialog that notes which operations were called.
class NotingDialog : public FinPIDialog {
public:
    NotingDialog(FinPI* owner, const char16* title, const char16* version)
        : FinPIDialog{owner, 22000, u"Plyweld", title, version} {}

    u16 GetPositionKeyOffset(WindowHandle, u64, i64) override { return keyOffset; }
    i16 OnInitializeWindow(WindowHandle) override { return Note("initialize", initializes); }
    void PrepareControls(WindowHandle) override { Note("prepare", 0); }
    void AfterInitializeWindow(WindowHandle) override { Note("after", 0); }
    i16 OnDialogReady() override { return Note("ready", 2); }
    i16 OnActivate(WindowHandle, u64, i64) override { return Note("activate", 11); }
    i16 OnPaint(WindowHandle, u64, i64) override { return Note("paint", 12); }
    i16 OnCharacter(WindowHandle, u64, i64) override { return Note("character", 13); }
    i16 OnOtherMessage(WindowHandle, u32, u64, i64) override { return Note("other", 14); }
    i16 OnControlColor(WindowHandle, u16 control, DeviceContext, u16 kind) override {
        return Note("color " + std::to_string(control) + " " + std::to_string(kind), 15);
    }
    void OnTimer(WindowHandle) override { Note("timer", 0); }
    void OnPreferencesChanged(WindowHandle) override { Note("preferences", 0); }
    i16 HandleCommand(WindowHandle window, u16 control, u8* final) override {
        Note("command " + std::to_string(control) + " " + std::to_string(m_notificationCode), 0);
        if (whileHandling) {
            whileHandling();
        }
        if (control == 2) {
            *final = 1;
            CloseDialog(window);
        }
        return 16;
    }

    Notes TakeNotes() { return std::exchange(m_notes, {}); }

    u16 keyOffset = 0;
    i16 initializes = 1;
    std::function<void()> whileHandling;

private:
    i16 Note(const std::string& note, i16 result) {
        m_notes.push_back(note);
        return result;
    }

    Notes m_notes;
};

class InterfaceTest : public testing::Test {
protected:
    InterfaceTest() { platform::headless::Reset(); }
    ~InterfaceTest() override { EXPECT_EQ(platform::headless::OpenRegistryKeys(), 0); }

    OpenDialog& Show(FinPIDialog& dialog) {
        dialog.ShowDialogWindow(nullptr, 0);
        return *desk.Newest();
    }

    standin::StandIn host;
    standin::DialogDesk desk;
    SettingsCommand command;
};
