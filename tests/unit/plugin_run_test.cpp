// One run: region, edit, errors, settings; and the command's dialog.
#include <cstring>
#include <gtest/gtest.h>

#include "platform/headless/session.h"
#include "tests/unit/plugin_driver.h"

namespace standin {
namespace {

void TwoLayers(StandIn& host, i16 staves = 1, u16 measures = 1) {
    for (i16 slot = 1; slot <= staves; ++slot) {
        for (u16 measure = 1; measure <= measures; ++measure) {
            host.Layer(slot, measure, 0, "w:c4");
            host.Layer(slot, measure, 1, "w:e4");
        }
    }
}

TEST(Edit, IsOneAndCanBeUndone) {
    StandIn host{1, 12};
    TwoLayers(host, 1, 12);
    host.Score().SetMeasureNumberText(12, u"12a");
    host.Select(1, 5, 0, 1, 12, kEndOfMeasure);
    const u64 before = host.Score().Digest();
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 12, 0), "w:c4,e4");
    EXPECT_EQ(host.Score().UndoTexts(), std::vector<std::u16string>{u"Plyweld 5-12a"});
    ASSERT_EQ(App().redrawn.size(), 1U);
    EXPECT_EQ(App().redrawn[0].startMeasure, 5);
    host.Score().Undo();
    EXPECT_EQ(host.Score().Digest(), before);
}

TEST(Region, WithEndsInTwoStaffLists) {
    struct {
        std::vector<u16> endList;  // slots of StandIn's three staves
        i16 endSlot;
        std::vector<i16> merged;
    } const cases[] = {
        // The last staff has a slot in the start's list, the score's own.
        {{2, 3}, 2, {1, 2, 3}},
        {{3, 1, 2}, 3, {1, 2}},
    };
    for (const auto& c : cases) {
        StandIn host{3, 1};
        TwoLayers(host, 3);
        std::vector<u16> staves;
        for (const u16 slot : c.endList) {
            staves.push_back(host.Staff(static_cast<i16>(slot)));
        }
        host.Score().SetStaffList(65501, staves);
        host.SelectAll();
        host.Score().selection->endStaffList = 65501;
        host.Score().selection->endSlot = c.endSlot;
        Plugin{}.Merge(host);
        for (i16 slot = 1; slot <= 3; ++slot) {
            const bool merged = std::count(c.merged.begin(), c.merged.end(), slot) != 0;
            EXPECT_EQ(host.Layer(slot, 1, 0), merged ? "w:c4,e4" : "w:c4") << slot;
        }
    }
}

TEST(Region, InAStaffListOfItsOwn) {
    StandIn host{3, 1};
    TwoLayers(host, 3);
    host.Score().SetStaffList(2, {host.Staff(3), host.Staff(1)});
    host.Score().selection = EREGION{2, 1, 1, 0, 2, 2, 1, kEndOfMeasure};
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 1, 0), "w:c4,e4");
    EXPECT_EQ(host.Layer(2, 1, 0), "w:c4");
    EXPECT_EQ(host.Layer(3, 1, 0), "w:c4,e4");
}

struct RefusedRun {
    const char* name;
    MergeOptions options;
    bool selected;
    u16 alert;
};

class NothingToDo : public testing::TestWithParam<RefusedRun> {};

TEST_P(NothingToDo, IsSaidAndChangesNothing) {
    StandIn host;
    TwoLayers(host);
    if (GetParam().selected) {
        host.SelectAll();
    }
    const u64 before = host.Score().Digest();
    Plugin{}.Merge(host, GetParam().options);
    ASSERT_EQ(App().alerts.size(), 1U);
    EXPECT_EQ(App().alerts[0].stringId, GetParam().alert);
    EXPECT_EQ(host.Score().Digest(), before);
    EXPECT_TRUE(App().redrawn.empty());
    EXPECT_EQ(App().calls.Of(HostCall::kEndFinaleEdit), 1U);
    EXPECT_EQ(App().calls.Of(HostCall::kCancelFinaleEdit), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    Run, NothingToDo,
    testing::Values(RefusedRun{"SameLayers", {.source = 1, .destination = 1}, true, 22002},
                    RefusedRun{"NoSelection", {}, false, 22003}),
    [](const auto& test) { return test.param.name; });

TEST(Run, WithoutADocument) {
    StandIn host;
    const EREGION whole = host.Score().WholeRegion();
    const Plugin plugin;
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kGetCurrentEnigmaDocument);
    plugin.Merge(host);
    ASSERT_EQ(App().alerts.size(), 1U);
    EXPECT_EQ(App().alerts[0].text, u"No open document.");
    EXPECT_EQ(App().calls.Of(HostCall::kStartFinaleEdit), 0U);
    EXPECT_EQ(whole.startMeasure, 1);
}

struct StoredCase {
    const char* name;
    std::vector<u8> stored;
    MergeOptions used;
};

class Settings : public testing::TestWithParam<StoredCase> {};

TEST_P(Settings, AreReadAndWrittenBack) {
    StandIn host;
    host.SelectAll();
    const Plugin plugin;
    if (!GetParam().stored.empty()) {
        Plugin::StoreBytes("Plyweld", "ZKCF22000", GetParam().stored.data(),
                           static_cast<u32>(GetParam().stored.size()));
    }
    platform::headless::HoldShift(true);
    plugin.Invoke(host);
    const std::vector<u8> bytes = Plugin::Stored("Plyweld", "ZKCF22000");
    ASSERT_EQ(bytes.size(), sizeof(MergeOptions));
    EXPECT_EQ(std::memcmp(bytes.data(), &GetParam().used, sizeof(MergeOptions)), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Run, Settings,
    testing::Values(
        StoredCase{"NothingStored", {}, {}},
        StoredCase{"Stored",
                   {0xFF, 0xFF, 2, 0, 3, 0, 0, 0, 0, 0, 1, 0},
                   {.source = 2, .destination = 3, .rebeam = 0, .hideRests = 1}},
        StoredCase{"TooShort", {12, 0, 2, 0, 3}, {.source = 2, .destination = 3, .rebeam = 0}}),
    [](const auto& test) { return test.param.name; });

// A dialog service that opens one dialog at a time, in memory.
class OneDialog : public DialogService {
public:
    OneDialog() { App().dialogs = this; }
    ~OneDialog() override { App().dialogs = nullptr; }

    void Send(u32 message, u64 eventWord = 0) {
        m_callback(Window(), message, eventWord, 0, m_object);
    }
    void Press(u16 control) { Send(273, control); }
    void Tick() { Send(275); }
    bool IsOpen() const { return m_object != nullptr; }

    int opened = 0;
    bool goEnabled = false;
    std::u16string selectionText;

    i16 Dialog(u16 number, DialogEventCallback callback, WindowHandle, u16, void* object) override {
        EXPECT_EQ(number, 22000);
        ++opened;
        m_callback = callback;
        m_object = object;
        Send(272);
        return 1;
    }
    i16 EndDialog(WindowHandle) override {
        Send(2);
        m_object = nullptr;
        return 1;
    }
    u32 GetItemVal(WindowHandle, u16 control, i16) override { return m_values[control]; }
    i16 SetItemVal(WindowHandle, u16 control, i16, u32 value) override {
        m_values[control] = value;
        return 1;
    }
    u32 GetCntlVal(WindowHandle, u16 control) override { return m_values[control]; }
    i16 SetCntlVal(WindowHandle, u16 control, u32 value) override {
        m_values[control] = value;
        return 1;
    }
    std::u16string GetString(WindowHandle, u16) override { return {}; }
    i16 SetString(WindowHandle, u16 control, const std::u16string& text) override {
        if (control == 1001) {
            selectionText = text;
        }
        return 1;
    }
    i16 Enable(WindowHandle, u16 control, bool enabled) override {
        if (control == 1) {
            goEnabled = enabled;
        }
        return 1;
    }
    i16 Show(WindowHandle, u16, bool) override { return 1; }
    i16 SetFocus(WindowHandle, u16) override { return 1; }
    i16 GetItemUser(WindowHandle, u16, i16, double*) override { return 0; }
    i16 SetItemUser(WindowHandle, u16, i16, double) override { return 0; }
    i16 SetTimer(WindowHandle, u64, u32) override { return 1; }
    i16 KillTimer(WindowHandle, u64) override { return 1; }

private:
    WindowHandle Window() { return reinterpret_cast<WindowHandle>(this); }

    DialogEventCallback m_callback = nullptr;
    void* m_object = nullptr;
    std::map<u16, u32> m_values;
};

TEST(Dialog, StaysOpenAcrossRunsAndOpensOnce) {
    StandIn host;
    OneDialog dialog;
    const Plugin plugin;
    plugin.Invoke(host);
    ASSERT_TRUE(dialog.IsOpen());
    EXPECT_EQ(dialog.selectionText, u"(No Selection)");
    plugin.Invoke(host);
    EXPECT_EQ(dialog.opened, 1);

    TwoLayers(host);
    host.SelectAll();
    dialog.Tick();
    EXPECT_NE(dialog.selectionText, u"(No Selection)");
    dialog.Press(1010);  // hide added rests
    dialog.Press(2);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(Plugin::Stored("Plyweld", "ZKCF22000")[10], 1);

    plugin.Invoke(host);
    EXPECT_EQ(dialog.opened, 2);
    dialog.Press(2);
}

TEST(Dialog, ThatDoesNotOpenLeavesTheCommandFree) {
    StandIn host;
    const Plugin plugin;
    plugin.Invoke(host);  // no dialog service
    OneDialog dialog;
    plugin.Invoke(host);
    EXPECT_EQ(dialog.opened, 1);
    dialog.Press(2);
}

}  // namespace
}  // namespace standin
