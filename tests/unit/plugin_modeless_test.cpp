// The command's dialog: what it shows, watches and saves, and where it appears.
#include <gtest/gtest.h>

#include "host/score/application.h"
#include "platform/headless/session.h"
#include "platform/window.h"
#include "tests/unit/plugin_driver.h"
#include "tests/unit/support/dialog_desk.h"

namespace standin {
namespace {

constexpr u16 kSelectionText = 1001;
constexpr u16 kFrom = 1003;
constexpr u16 kTo = 1005;
constexpr u16 kReplace = 1007;
constexpr u16 kRebeam = 1009;
constexpr u16 kHideRests = 1010;

using OpenDialog = DialogDesk::OpenDialog;

std::vector<u8> StoredOptions() {
    return Plugin::Stored("Plyweld", "ZKCF22000");
}

class OpenCommand : public testing::Test {
protected:
    OpenCommand() { host.SelectAll(); }

    OpenDialog& Open(u16 item = 0) {
        plugin.Invoke(host, item);
        return *desk.Newest();
    }

    StandIn host{1, 2};
    DialogDesk desk;
    const Plugin plugin;
};

TEST_F(OpenCommand, GoRunsAndLeavesItOpen) {
    host.Layer(1, 1, 2, "w:c4");
    host.Layer(1, 2, 2, "w:d4");
    OpenDialog& open = Open();
    EXPECT_EQ(open.SelectedItem(kFrom), u"All Layers");
    EXPECT_EQ(open.SelectedItem(kTo), u"Layer 1");
    EXPECT_FALSE(open.disabled.contains(kGo));
    open.Choose(kFrom, 2);
    EXPECT_TRUE(open.disabled.contains(kGo)) << "the same layer in both lists";
    open.Choose(kFrom, 4);
    open.Choose(kTo, 2);
    open.Press(kHideRests);
    open.Press(kGo);
    EXPECT_EQ(host.Layer(1, 1, 1), "w:c4");
    EXPECT_EQ(host.Layer(1, 1, 2), "w:x");
    ASSERT_EQ(desk.Newest(), &open);
    open.Press(kReplace);
    open.Press(kClose);
    EXPECT_EQ(desk.Newest(), nullptr);
    EXPECT_EQ(StoredOptions(), (std::vector<u8>{12, 0, 2, 0, 1, 0, 1, 0, 1, 0, 1, 0}));
    EXPECT_FALSE(Plugin::Stored("Plyweld", "WPOS22000").empty());
}

TEST_F(OpenCommand, OpensOnceAnItemAndAgainWhenItDidNotOpen) {
    App().dialogs = nullptr;
    plugin.Invoke(host);
    App().dialogs = &desk;
    Open();
    plugin.Invoke(host);
    EXPECT_EQ(desk.Shown().size(), 1U);
    EXPECT_EQ(platform::headless::FocusedWindow(), &desk.Newest()->window);
    desk.Newest()->Press(kClose);
    Open().Press(kClose);
    EXPECT_EQ(desk.Shown().size(), 2U);
}

// An older host exports less: what it lacks is missing from the dialog, and nothing else.
TEST(OlderHost, TheDialogDoesWithoutACallback) {
    for (const char* missing :
         {"FX_EnableDlgItem", "FX_EndDialog", "FX_GetDlgCntlVal", "FX_GetDlgItemVal",
          "FX_GetDlgString_UTF16", "FX_KillTimer", "FX_SetDlgCntlVal", "FX_SetDlgItemVal",
          "FX_SetDlgString_UTF16", "FX_SetDlgFocus", "FX_SetTimer", "FX_ShowHideDlgItem",
          "FX_GetCurERegions", "FX_GetNextEnigmaDocument"}) {
        SCOPED_TRACE(missing);
        StandIn host;
        host.SelectAll();
        const Plugin plugin;
        platform::headless::HideHostFunction(missing);
        DialogDesk desk;
        plugin.Invoke(host);
        ASSERT_NE(desk.Newest(), nullptr);
        for (const u16 control : {kReplace, kHideRests, kSaveSettings, kGo, kClose}) {
            desk.Newest()->Press(control);
        }
        if (desk.Newest() != nullptr) {
            desk.Newest()->Send(kDestroyMessage);  // the host ends it
        }
        EXPECT_EQ(StoredOptions().size(), 12U);
    }
}

TEST_F(OpenCommand, TheSelectionIsReadAnewWhenItChanges) {
    OpenDialog& open = Open();
    EXPECT_EQ(open.timers, (std::map<u64, u32>{{1, 100}}));
    const std::u16string before = open.texts[kSelectionText];
    open.Type(kSelectionText, u"untouched");
    open.Send(kTimerMessage);
    EXPECT_EQ(open.texts[kSelectionText], u"untouched") << "the selection is the same";
    host.Select(1, 2, 0, 1, 2, kEndOfMeasure);
    open.Send(kTimerMessage);
    EXPECT_NE(open.texts[kSelectionText], u"untouched");
    EXPECT_NE(open.texts[kSelectionText], before);
    host.SelectNothing();
    open.Send(kTimerMessage);
    EXPECT_EQ(open.texts[kSelectionText], u"(No Selection)");
    EXPECT_TRUE(open.disabled.contains(kGo));
    open.Press(kClose);
}

TEST_F(OpenCommand, WhatTheSelectionsTextCannotReadIsNotToldLater) {
    OpenDialog& open = Open();
    host.Select(1, 1, 1024, 1, 2, kEndOfMeasure);
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kLoadEData);
    open.Send(kTimerMessage);
    App().faults = {};
    plugin.Invoke(host, 1);
    EXPECT_NE(AlertTexts().find("Saved settings for menu item not found."), std::string::npos)
        << AlertTexts();
    open.Press(kClose);
}

TEST_F(OpenCommand, AListWithNoSelectionCountsAsTheFirstLayer) {
    OpenDialog& open = Open();
    open.positions[kFrom] = 0;
    open.positions[kTo] = 4;
    open.Press(kRebeam);
    open.Press(kClose);
    EXPECT_EQ(StoredOptions(), (std::vector<u8>{12, 0, 0, 0, 3, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(OpenCommand, OptionsOutOfRangeShowAsNothingChosen) {
    Plugin::Store({12, 9, 8, 65535, 1, 0});
    OpenDialog& open = Open();
    EXPECT_EQ(open.SelectedItem(kFrom), u"(none)");
    EXPECT_EQ(open.SelectedItem(kTo), u"(none)");
    EXPECT_TRUE(open.disabled.contains(kGo));
    open.Press(kClose);
}

TEST_F(OpenCommand, ASavedSettingOpensBesideTheOtherDialogAndKeepsAPlaceOfItsOwn) {
    Plugin::StoreSetting(1, {.name = "A", .identifier = 3});
    ASSERT_EQ(plugin.Init(), 1);
    Open().Send(kCloseMessage);
    OpenDialog& again = Open();
    OpenDialog& setting = Open(1);
    EXPECT_EQ(setting.window.caption, u"A v6.10");
    EXPECT_EQ(setting.window.rectangle.left, again.window.rectangle.left + 10);
    setting.Press(kClose);
    EXPECT_FALSE(Plugin::Stored("Plyweld", "WPOS12003").empty());
    again.Press(kClose);
}

TEST_F(OpenCommand, ARunAfterSavingWorksOnTheSavedSetting) {
    Plugin::Store({12, 1, 0, 0, 1, 0});
    OpenDialog& open = Open();
    desk.ThenSaveAs(u"Mine");
    open.Press(kSaveSettings);
    EXPECT_EQ(desk.ScriptsLeft(), 0U);
    open.Choose(kFrom, 4);
    open.Press(kGo);
    open.Press(kClose);
    const std::vector<u8> setting = Plugin::Stored("Save Settings", "ZKSC22001");
    ASSERT_EQ(setting.size(), 172U);
    EXPECT_EQ(setting[162], 2) << "what the dialog showed at the end";
    EXPECT_EQ(StoredOptions()[2], 1) << "the command's own stay";
    // The host's menu is as old as before: its items are not to be trusted.
    plugin.Invoke(host, 1);
    ASSERT_EQ(App().alerts.size(), 1U);
    EXPECT_EQ(App().alerts.front().stringId, 20004);
    EXPECT_EQ(desk.Newest(), nullptr);
}

TEST_F(OpenCommand, TakesTheMenuMessageAndNoOther) {
    OpenDialog& open = Open();
    const u32 message = platform::RegisterMessage("FinaleMenuEventForOrvandelPlugins");
    EXPECT_EQ(open.Send(message, 0, 10502), 1);
    EXPECT_EQ(open.Send(message + 1, 0, 10502), 0);
    open.Send(kTimerMessage);
    open.Press(kClose);
}

}  // namespace
}  // namespace standin
