// The command's dialog: what it shows, watches and saves, and where it appears.
#include <cstddef>

#include "platform/headless/session.h"
#include "platform/window.h"
#include "tests/unit/support/dialog_desk.h"
#include "tests/unit/support/plugin_driver.h"

namespace standin {
namespace {

constexpr u16 kSelectionText = 1001;
constexpr u16 kFrom = 1003;
constexpr u16 kTo = 1005;
constexpr u16 kReplace = 1007;
constexpr u16 kRebeam = 1009;
constexpr u16 kHideRests = 1010;
constexpr u8 kSize = sizeof(MergeOptions);

constexpr u16 kMeasures = 40;  // enough for reports of a run's progress

using OpenDialog = DialogDesk::OpenDialog;

// The first six words of the record; later ones are switches.
std::vector<u8> StoredOptions() {
    std::vector<u8> record = Plugin::Stored("Plyweld", "ZKCF22000");
    EXPECT_EQ(record.size(), sizeof(MergeOptions));
    record.resize(12);
    return record;
}

int WordOfStored(std::size_t offset) {
    const std::vector<u8> record = Plugin::Stored("Plyweld", "ZKCF22000");
    return record.at(offset) + 256 * record.at(offset + 1);
}

class OpenCommand : public testing::Test {
protected:
    OpenCommand() { host.SelectAll(); }
    ~OpenCommand() override {
        while (desk.Newest() != nullptr) {
            desk.EndDialog(&desk.Newest()->window);
        }
    }

    OpenDialog& Open(u16 item = 0) {
        EXPECT_EQ(plugin.Invoke(host, item), 0);
        return *desk.Newest();
    }

    // Actions that must have no effect during a run.
    static void PressEverything(OpenDialog& open) {
        for (const u16 control : {kGo, kSaveSettings, kClose}) {
            EXPECT_EQ(open.Press(control), 0) << control;
        }
    }

    StandIn host{1, kMeasures};
    DialogDesk desk;
    const Plugin plugin;
};

TEST_F(OpenCommand, GoRunsAndLeavesItOpen) {
    host.Layer(1, 1, 2, "w:c4");
    host.Layer(1, 2, 2, "w:d4");
    host.Select(1, 1, 0, 1, 1, kEndOfMeasure);
    OpenDialog& open = Open();
    EXPECT_EQ(open.SelectedItem(kFrom), u"All Layers");
    EXPECT_EQ(open.SelectedItem(kTo), u"Layer 1");
    EXPECT_FALSE(open.disabled.contains(kGo));
    EXPECT_EQ(open.timers, (std::map<u64, u32>{{1, 100}}));
    open.Choose(kFrom, 2);
    EXPECT_TRUE(open.disabled.contains(kGo)) << "the same layer in both lists";
    open.Choose(kFrom, 4);
    open.Choose(kTo, 3);
    EXPECT_TRUE(open.disabled.contains(kGo));
    open.Choose(kTo, 2);
    open.Press(kHideRests);
    open.Press(kGo);
    EXPECT_EQ(host.Layer(1, 1, 1), "w:c4");
    EXPECT_EQ(host.Layer(1, 1, 2), "w:x");
    EXPECT_EQ(host.Layer(1, 2, 1), "");
    host.Select(1, 2, 0, 1, 2, kEndOfMeasure);
    open.Press(kGo);
    EXPECT_EQ(host.Layer(1, 2, 1), "w:d4") << "the music that is selected then";
    ASSERT_EQ(desk.Newest(), &open);
    open.Press(kReplace);
    open.Press(kClose);
    EXPECT_EQ(desk.Newest(), nullptr);
    EXPECT_EQ(StoredOptions(), (std::vector<u8>{kSize, 0, 2, 0, 1, 0, 1, 0, 1, 0, 1, 0}));
    EXPECT_FALSE(Plugin::Stored("Plyweld", "WPOS22000").empty());
}

TEST_F(OpenCommand, EachCheckBoxSetsItsWord) {
#define MERGE_SWITCH(Name, member, initial, control, ...) \
    Open().Press(control);                                \
    desk.Newest()->Press(kClose);                         \
    EXPECT_EQ(WordOfStored(offsetof(MergeOptions, member)), 1 - (initial)) << (control);
#include "shell/options/merge_switches.inc"
}

TEST_F(OpenCommand, ShiftShowsTheDialogOfASettingThatSkipsIt) {
    Plugin::StoreSetting(1, {.name = "Quick", .skipsDialog = true});
    plugin.Init();
    plugin.InvokeWithShift(host, 1);
    ASSERT_NE(desk.Newest(), nullptr);
    EXPECT_TRUE(host.Score().UndoTexts().empty());
}

TEST_F(OpenCommand, OpensOncePerItem) {
    App().dialogs = nullptr;
    plugin.Invoke(host);
    App().faults.pretendKind = HostCall::kDialog;
    plugin.Invoke(host);
    App().faults = {};
    App().dialogs = &desk;
    Open();
    plugin.Invoke(host);
    EXPECT_EQ(desk.Shown().size(), 1U);
    EXPECT_EQ(platform::headless::FocusedWindow(), &desk.Newest()->window);
    desk.Newest()->Press(kClose);
    Open().Press(kClose);
    EXPECT_EQ(desk.Shown().size(), 2U);
}

TEST_F(OpenCommand, UpdatesChangedSelection) {
    OpenDialog& open = Open();
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
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kEndDialog);
    EXPECT_EQ(open.Press(kClose), 0);
    App().faults = {};
    host.SelectAll();
    open.Send(kTimerMessage);
    EXPECT_EQ(open.texts[kSelectionText], u"(No Selection)") << "it is about to go away";
}

// Neither as a failure of a run nor when something else is.
TEST_F(OpenCommand, UnreadableSelectionPostsNothing) {
    host.Layer(1, 2, 1, "w:c4");
    OpenDialog& open = Open();
    host.Select(1, 1, 1024, 1, 2, kEndOfMeasure);
    const auto showSelection = [&open] {
        App().faults.refuseKind = FaultPlan::AllOf(HostCall::kLoadEData);
        open.Type(kSelectionText, u"");
        open.Send(kTimerMessage);
        EXPECT_NE(open.texts[kSelectionText], u"");
        App().faults = {};
    };
    showSelection();
    open.Press(kGo);
    EXPECT_EQ(AlertTexts(), "");
    EXPECT_EQ(host.Layer(1, 2, 0), "w:c4");
    host.Select(1, 1, 2048, 1, 2, kEndOfMeasure);
    showSelection();
    plugin.Invoke(host, 1);
    EXPECT_NE(AlertTexts().find("Saved settings for menu item not found."), std::string::npos);
}

TEST_F(OpenCommand, EmptyListMeansFirstLayer) {
    OpenDialog& open = Open();
    open.positions[kFrom] = 0;
    open.positions[kTo] = 4;
    open.Press(kRebeam);
    open.Press(kClose);
    EXPECT_EQ(StoredOptions(), (std::vector<u8>{kSize, 0, 0, 0, 3, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(OpenCommand, InvalidOptionsShowNoChoice) {
    Plugin::Store({kSize, 9, 8, 65535, 1, 0});
    OpenDialog& open = Open();
    EXPECT_EQ(open.SelectedItem(kFrom), u"(none)");
    EXPECT_EQ(open.SelectedItem(kTo), u"(none)");
    EXPECT_TRUE(open.disabled.contains(kGo));
}

TEST_F(OpenCommand, SavedSettingHasOwnPlace) {
    Plugin::StoreSetting(1, {.name = "A", .identifier = 3});
    ASSERT_EQ(plugin.Init(), 1);
    Open().Send(kCloseMessage);
    OpenDialog& again = Open();
    again.window.rectangle = {420, 130, 820, 430};  // the user moved it
    OpenDialog& setting = Open(1);
    EXPECT_EQ(setting.window.caption, u"A v" PLYWELD_VERSION);
    EXPECT_EQ(setting.window.rectangle.left, 430);
    setting.Press(kClose);
    EXPECT_FALSE(Plugin::Stored("Plyweld", "WPOS12003").empty());
}

TEST_F(OpenCommand, RunAfterSavingUsesSavedSetting) {
    Plugin::Store({kSize, 1, 0, 0, 1, 0});
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
    // The host's menu is out of date, so its items must not run.
    plugin.Invoke(host, 1);
    ASSERT_EQ(App().alerts.size(), 1U);
    EXPECT_EQ(App().alerts.front().stringId, 20004);
    EXPECT_EQ(desk.Newest(), nullptr);
}

// Two dialogs: what is saved or deleted in one moves the setting that the other works on.
TEST_F(OpenCommand, RenumberedSettingIsWrittenToNewNumber) {
    for (const u8 i : {u8{1}, u8{2}}) {
        Plugin::StoreSetting(i, {.name = i == 1 ? "a" : "b", .identifier = i});
    }
    ASSERT_EQ(plugin.Init(), 1);
    OpenDialog& b = Open(2);
    OpenDialog& own = Open();
    desk.ThenSaveAs(u"A new one");
    own.Press(kSaveSettings);
    own.Press(kClose);
    desk.Then([](OpenDialog& save) { EXPECT_EQ(save.texts[7], u"b"); });
    b.Press(kSaveSettings);
    b.Choose(kFrom, 5);
    b.Press(kClose);
    EXPECT_EQ(Plugin::Stored("Save Settings", "ZKSC22002").at(162), 0xFF) << "a";
    EXPECT_EQ(Plugin::Stored("Save Settings", "ZKSC22003")[162], 3) << "b";
    EXPECT_EQ(AlertTexts(), "");
}

TEST_F(OpenCommand, DeletedSettingOverwritesNoOther) {
    Plugin::StoreSetting(1, {.name = "a", .identifier = 1});
    ASSERT_EQ(plugin.Init(), 1);
    OpenDialog& a = Open(1);
    Plugin::StoreSetting(1, {.name = "b", .identifier = 2, .options = {.source = 2}});
    a.Press(kClose);
    EXPECT_EQ(Plugin::Stored("Save Settings", "ZKSC22001")[162], 2);
    EXPECT_EQ(App().alerts.size(), 1U);
}

TEST_F(OpenCommand, StoresOptionsWhenClosed) {
    constexpr u32 kSystemCommand = 274;
    constexpr u64 kCloseCommand = 0xF060;
    Plugin::Store({kSize, 0, 3, 0, 1, 0});
    OpenDialog& open = Open();
    open.Choose(kFrom, 3);
    desk.ThenSaveAs(u"Mine");
    open.Press(kSaveSettings);
    open.Send(kDestroyMessage);
    EXPECT_EQ(Plugin::Stored("Save Settings", "ZKSC22001").at(162), 1);
    EXPECT_EQ(StoredOptions()[2], 0) << "the command's own stay";
    OpenDialog& again = Open();
    again.Choose(kFrom, 4);
    again.Send(kSystemCommand, kCloseCommand);
    EXPECT_EQ(StoredOptions()[2], 2);
    const u8 rebeamed = StoredOptions()[8];
    App().maxLayers = 1;
    OpenDialog& oneLayer = Open();
    oneLayer.Press(kRebeam);
    oneLayer.Send(kSystemCommand, kCloseCommand);
    EXPECT_EQ(StoredOptions()[8], 1 - rebeamed);
    App().maxLayers = 4;
    // The lists of a window that is going away may be empty by then.
    OpenDialog& emptied = Open();
    emptied.Choose(kFrom, 5);
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kEndDialog);
    emptied.Press(kClose);
    App().faults = {};
    emptied.window.controls[kFrom].items.clear();
    emptied.window.controls[kTo].items.clear();
    emptied.positions.clear();
    emptied.Send(kDestroyMessage);
    EXPECT_EQ(StoredOptions()[2], 3);
}

TEST_F(OpenCommand, RunKeepsItsOptions) {
    host.Layer(1, kMeasures, 1, "w:c4");
    OpenDialog& open = Open();
    App().progressListener = [&](const ProgressReport&) {
        open.Choose(kTo, 4);
        PressEverything(open);
        return true;
    };
    open.Press(kGo);
    App().progressListener = nullptr;
    EXPECT_EQ(host.Layer(1, kMeasures, 0), "w:c4");
    EXPECT_EQ(StoredOptions()[4], 0);
    EXPECT_EQ(desk.Shown().size(), 1U);
    ASSERT_EQ(desk.Newest(), &open);
}

TEST_F(OpenCommand, AlertBlocksOtherActions) {
    Plugin::StoreSetting(1, {.name = "A"});
    ASSERT_EQ(plugin.Init(), 1);
    host.Layer(1, 1, 2, "w:c4");
    OpenDialog& other = Open(1);
    OpenDialog& open = Open();
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kSaveTGF);
    App().alertListener = [&](const Alert&) {
        App().alertListener = nullptr;
        PressEverything(open);
        other.Press(kGo);
    };
    open.Press(kGo);
    EXPECT_EQ(App().alerts.size(), 1U);
    EXPECT_EQ(desk.Shown().size(), 2U);
    ASSERT_EQ(desk.Newest(), &open);
    App().faults = {};
    open.Press(kGo);
    EXPECT_EQ(host.Layer(1, 1, 0), "w:c4");
}

// Otherwise the first run's error would be lost, and its edit kept.
TEST_F(OpenCommand, RunsDoNotNest) {
    host.LayerEverywhere(0, "w:c4");
    host.LayerEverywhere(1, "w:e4");
    host.Attach({1, 3, 1, 0}, kArticulation, "accent");
    Plugin::StoreSetting(1, {.name = "A"});
    plugin.Init();
    OpenDialog& other = Open(1);
    OpenDialog& open = Open();
    App().progressListener = [&](const ProgressReport&) {
        other.Press(kGo);
        desk.ThenSaveAs(u"B");
        other.Press(kSaveSettings);
        return true;
    };
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kDeleteEData);
    const u64 before = host.Score().Digest();
    open.Press(kGo);
    EXPECT_EQ(App().alerts.size(), 1U);
    EXPECT_EQ(host.Score().Digest(), before);
    App().progressListener = nullptr;
}

TEST_F(OpenCommand, HandlesOnlyMenuMessage) {
    OpenDialog& open = Open();
    const u32 message = platform::RegisterMessage("FinaleMenuEventForOrvandelPlugins");
    EXPECT_EQ(open.Send(message, 0, 10502), 1);
    EXPECT_EQ(open.Send(message + 1, 0, 10502), 0);
}

}  // namespace
}  // namespace standin
