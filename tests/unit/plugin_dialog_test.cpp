// The command's dialog, as a user sees it.
#include <gtest/gtest.h>

#include "tests/unit/plugin_driver.h"
#include "tests/unit/support/dialog_desk.h"

namespace standin {
namespace {

constexpr u16 kGo = 1;
constexpr u16 kClose = 2;
constexpr u16 kSelectionText = 1001;
constexpr u16 kFrom = 1003;
constexpr u16 kTo = 1005;
constexpr u16 kReplace = 1007;
constexpr u16 kHideRests = 1010;
constexpr u32 kTimerMessage = 275;

TEST(Dialog, OpensWithTheDefaults) {
    StandIn host;
    host.SelectAll();
    DialogDesk desk;
    const Plugin plugin;
    plugin.Invoke(host);
    DialogDesk::OpenDialog* dialog = desk.Newest();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->number, 22000);
    EXPECT_EQ(dialog->Items(kFrom),
              (std::vector<std::u16string>{u"All Layers", u"Layer 1", u"Layer 2", u"Layer 3",
                                           u"Layer 4"}));
    EXPECT_EQ(dialog->SelectedItem(kFrom), u"All Layers");
    EXPECT_EQ(dialog->SelectedItem(kTo), u"Layer 1");
    EXPECT_EQ(dialog->disabled.count(kGo), 0U);
    dialog->Choose(kFrom, 2);
    EXPECT_EQ(dialog->disabled.count(kGo), 1U) << "the same layer in both lists";
    dialog->Press(kClose);
}

TEST(Dialog, GoRunsAndLeavesItOpen) {
    StandIn host;
    host.Layer(1, 1, 2, "w:c4");
    host.SelectNothing();
    DialogDesk desk;
    const Plugin plugin;
    plugin.Invoke(host);
    DialogDesk::OpenDialog* dialog = desk.Newest();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->texts[kSelectionText], u"(No Selection)");
    EXPECT_EQ(dialog->disabled.count(kGo), 1U);
    host.SelectAll();
    dialog->Send(kTimerMessage);
    EXPECT_NE(dialog->texts[kSelectionText], u"(No Selection)");

    dialog->Choose(kFrom, 4);
    dialog->Choose(kTo, 2);
    dialog->Press(kHideRests);
    dialog->Press(kGo);
    EXPECT_EQ(host.Layer(1, 1, 1), "w:c4");
    EXPECT_EQ(host.Layer(1, 1, 2), "w:x");
    ASSERT_EQ(desk.Newest(), dialog);
    EXPECT_FALSE(dialog->ended);
    dialog->Press(kReplace);
    dialog->Press(kClose);
    EXPECT_EQ(desk.Newest(), nullptr);
    EXPECT_EQ(Plugin::Stored("Plyweld", "ZKCF22000"),
              (std::vector<u8>{12, 0, 2, 0, 1, 0, 1, 0, 1, 0, 1, 0}));
    EXPECT_FALSE(Plugin::Stored("Plyweld", "WPOS22000").empty());
}

TEST(Dialog, OpensOnceAnItem) {
    StandIn host;
    DialogDesk desk;
    const Plugin plugin;
    plugin.Invoke(host);
    plugin.Invoke(host);
    EXPECT_EQ(desk.Shown().size(), 1U);
    EXPECT_EQ(platform::headless::FocusedWindow(), &desk.Newest()->window);
    desk.Newest()->Press(kClose);
    plugin.Invoke(host);
    EXPECT_EQ(desk.Shown().size(), 2U);
    desk.Newest()->Press(kClose);
}

TEST(Dialog, ThatDoesNotOpenLeavesTheCommandFree) {
    StandIn host;
    const Plugin plugin;
    plugin.Invoke(host);  // nobody shows dialogs
    DialogDesk desk;
    plugin.Invoke(host);
    EXPECT_EQ(desk.Shown().size(), 1U);
    desk.Newest()->Press(kClose);
}

}  // namespace
}  // namespace standin
