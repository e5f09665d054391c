// The plug-in's exports: version, start-up, menu items.
#include <tuple>

#include "platform/headless/session.h"
#include "platform/headless/window_model.h"
#include "tests/unit/support/failing_memory.h"
#include "tests/unit/support/files.h"
#include "tests/unit/support/plugin_driver.h"

namespace standin {
namespace {

TEST(Version, IsLimited) {
    const Plugin plugin;
    EXPECT_EQ(plugin.Version(0x19FFFFFF), 0x1A200000U);
    EXPECT_EQ(plugin.Version(0x1B000001), 0x1B000001U);
    EXPECT_EQ(plugin.Version(0x1C000000), 0x1B400000U);
}

TEST(Init, SetsFlagForNewHosts) {
    const StandIn host;
    const Plugin plugin;
    for (const auto& [version, expected] : {std::pair{0x0C010000U, 0x11U}, {0x0C00FFFFU, 0x10U}}) {
        u32 flags = 0x10;
        plugin.Version(version);
        EXPECT_EQ(plugin.Init(&flags), 1);
        EXPECT_EQ(flags, expected);
    }
}

TEST(Init, RefusesBesideCertainFolders) {
    // Each is a folder beside a copy of the plug-in's file, or that file's own name.
    const std::tuple<const char*, bool, i16> cases[] = {
        {"Miscellaneous", true, 0}, {"Multimeasure Rests", true, 0}, {"Staff Sets", true, 0},
        {"Transpose", true, 0},     {"Transpose.old", true, 0},      {"transpose", true, 1},
        {"Transposer", true, 1},    {"Transpose", false, 1},
    };
    for (const auto& [name, isFolder, loads] : cases) {
        SCOPED_TRACE(name);
        const TemporaryFolder folder;
        std::filesystem::create_directory(folder / (isFolder ? name : "Other"));
        const std::string file = folder / (isFolder ? "plyweld.so" : name);
        std::filesystem::copy_file(PLYWELD_PLUGIN, file);
        const StandIn host;
        const Plugin plugin{file};
        plugin.Version(kInterfaceVersion);
        EXPECT_EQ(plugin.Init(), loads);
        EXPECT_EQ(platform::headless::FireTimers(), loads);
    }
}

using Listed = std::tuple<std::u16string, u16, u32>;  // text, skipsDialog, flags

class Items : public testing::Test {
protected:
    Items() { plugin.Version(kInterfaceVersion); }

    // Starts the plug-in and asks for its items.
    std::vector<Listed> List() {
        EXPECT_EQ(plugin.Init(), 1);
        std::vector<Listed> items;
        MenuItemDescriptor out{};
        out.flags = 0x80;
        for (i16 item = 0; plugin.Enumerate(item, &out) != 0; ++item) {
            EXPECT_EQ(std::u16string{out.text}, std::u16string{out.textCopy});
            EXPECT_EQ(out.alwaysOne, 1);
            items.emplace_back(out.text, out.skipsDialog, +out.flags);
            description = out.description;
            out.flags = 0x80;
        }
        return items;
    }

    StandIn host;
    const Plugin plugin;
    std::u16string description;  // of the last item
};

TEST_F(Items, ContainOnlyTheCommand) {
    EXPECT_EQ(List(), (std::vector<Listed>{{u"Plyweld...", 0, 0x81}}));
    EXPECT_EQ(description, u"Merges contents of two or more layers into a single layer.");
    EXPECT_EQ(plugin.Status(0), 1);
    EXPECT_EQ(platform::headless::FireTimers(), 1);
    EXPECT_EQ(platform::headless::FireTimers(), 0);
}

TEST_F(Items, IncludeSavedSettings) {
    platform::headless::SetLanguage(platform::headless::Language::kSpanish);
    Plugin::StoreSetting(1, {.name = "Slow"});
    Plugin::StoreSetting(2, {.name = std::string(127, 'n'), .skipsDialog = true});
    EXPECT_EQ(List(), (std::vector<Listed>{{u"Plyweld...", 0, 0x81},
                                           {u"Slow...", 0, 0x81},
                                           {std::u16string(127, u'n'), 1, 0x80}}));
    EXPECT_EQ(description, u"Aplica ajustes guardados previamente de Plyweld.");
    host.SelectNothing();
    EXPECT_EQ(plugin.Status(0), 1);
    EXPECT_EQ(plugin.Status(1), 1);
    EXPECT_EQ(plugin.Status(2), 0);
    host.SelectAll();
    EXPECT_EQ(plugin.Status(2), 1);
}

TEST_F(Items, IncludeSettingsOfTheOldOwner) {
    Plugin::StoreSetting(1, {.name = "Slow"});
    const std::vector<u8> record = Plugin::Stored("Save Settings", "ZKSC22001");
    platform::headless::Reset();
    Plugin::StoreBytes("Einstellungen speichern", "ZKSC22001", record.data(),
                       static_cast<u32>(record.size()));
    EXPECT_EQ(List().size(), 2U);
}

TEST_F(Items, HavePrefixForSubmenu) {
    Plugin::StoreSetting(1, {.name = "Slow", .useSubmenu = true});
    EXPECT_EQ(List(), (std::vector<Listed>{{u"Plyweld " PLYWELD_VERSION "...", 0, 0x81},
                                           {u"Plyweld " PLYWELD_VERSION " Slow...", 0, 0x81}}));
}

TEST_F(Items, LongNamesMoveIntoSubmenu) {
    const std::string name(127, 'n');
    Plugin::StoreSetting(1, {.name = name, .useSubmenu = true});
    HWND__ window;
    window.menuBar.reset(new HMENU__);
    for (u32 top = 1; top <= 6; ++top) {
        window.menuBar->items.push_back({u"Menu", top, platform::OwnedMenu{new HMENU__}});
    }
    const platform::Menu menu = window.menuBar->items.back().submenu.get();
    plugin.Init(nullptr, &window);
    MenuItemDescriptor out{};
    for (i16 item = 0; plugin.Enumerate(item, &out) != 0; ++item) {
        menu->items.push_back({out.text, 40 + static_cast<u32>(item)});
    }
    platform::headless::FireTimers();
    ASSERT_EQ(menu->items.size(), 1U);
    EXPECT_EQ(
        menu->items[0].submenu->items.back().text,
        std::u16string(127 - std::u16string_view{u"Plyweld " PLYWELD_VERSION " "}.size(), u'n'));
}

// Whatever request for memory is refused while the menu is shaped.
TEST_F(Items, StayInPlaceWithoutMemory) {
    Plugin::StoreSetting(1, {.name = "Slow", .useSubmenu = true});
    for (int granted = 0; granted < 50; ++granted) {
        plugin.Init();
        FailingMemory::granted = granted;
        try {
            platform::headless::FireTimers();
        } catch (const std::bad_alloc&) {  // refused to the session itself
        }
        FailingMemory::granted = -1;
        platform::headless::FireTimers();
    }
    EXPECT_EQ(platform::headless::FireTimers(), 0);
}

TEST_F(Items, SavedSettingUsesItsOptions) {
    host.Layer(1, 1, 2, "w:c4");
    host.SelectAll();
    Plugin::StoreSetting(1, {.name = "Third into second",
                             .skipsDialog = true,
                             .options = {.source = 2, .destination = 1}});
    plugin.Init();
    plugin.Invoke(host, 1);
    EXPECT_EQ(host.Layer(1, 1, 1), "w:c4");
    EXPECT_EQ(host.Score().UndoTexts(), std::vector<std::u16string>{u"Third into second 1"});
    EXPECT_TRUE(Plugin::Stored("Plyweld", "ZKCF22000").empty());
    EXPECT_EQ(Plugin::Stored("Save Settings", "ZKSC22001").size(), 172U);

    plugin.Invoke(host, 2);
    EXPECT_NE(AlertTexts().find("Saved settings for menu item not found."), std::string::npos);
    const std::vector<u8> ofAnotherBuild(172, 1);
    Plugin::StoreBytes("Save Settings", "ZKSC22002", ofAnotherBuild.data(), 172);
    plugin.Invoke(host, 2);
    EXPECT_EQ(App().alerts.size(), 2U) << "not found, too";
}

}  // namespace
}  // namespace standin
