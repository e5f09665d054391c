// A plug-in with a second command, the one of docs/class-library.md: one row of its table lists
// it, runs it, and makes room for it before the saved settings.
#include "tests/unit/support/plugin_driver.h"

namespace standin {
namespace {

class TwoCommands : public testing::Test {
protected:
    TwoCommands() {
        plugin.Version(kInterfaceVersion);
        Plugin::StoreSetting(1, {.name = "Slow"});
        EXPECT_EQ(plugin.Init(), 1);
    }

    StandIn host{1, 2};
    const Plugin plugin{PLYWELD_TWO_COMMANDS};
};

TEST_F(TwoCommands, PrecedeSavedSettings) {
    std::vector<std::u16string> items;
    MenuItemDescriptor out{};
    for (i16 item = 0; plugin.Enumerate(item, &out) != 0; ++item) {
        items.emplace_back(out.text);
    }
    EXPECT_EQ(items, (std::vector<std::u16string>{u"Plyweld...", u"All Layers...", u"Slow..."}));
}

TEST_F(TwoCommands, SavedSettingsCountBehindThem) {
    Plugin::StoreSetting(1, {.name = "Quick", .skipsDialog = true});
    host.Write({"w:c4", "w:e4"});
    plugin.Invoke(host, 2);
    EXPECT_EQ(host.Layer(1, 1, 0), "w:c4,e4");
}

TEST_F(TwoCommands, RunAsTheirItems) {
    host.Write({"w:c4", "w:e4"});
    EXPECT_EQ(plugin.Invoke(host, 1), 0);
    EXPECT_EQ(host.Score().Records().OfTag(HostTag("otBk")).size(), 2U);
    EXPECT_EQ(host.Layer(1, 1, 0), "w:c4");
    plugin.Merge(host);
    EXPECT_EQ(host.Layer(1, 1, 0), "w:c4,e4");
}

}  // namespace
}  // namespace standin
