// The plug-in's exports: version, start-up, menu items.
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/headless/session.h"
#include "tests/unit/plugin_driver.h"

namespace standin {
namespace {

namespace fs = std::filesystem;

TEST(Version, IsTheSmallerWithinWhatThePluginKnows) {
    const Plugin plugin;
    EXPECT_EQ(plugin.Version(0x19FFFFFF), 0x1A200000U);
    EXPECT_EQ(plugin.Version(0x1A200000), 0x1A200000U);
    EXPECT_EQ(plugin.Version(0x1B000001), 0x1B000001U);
    EXPECT_EQ(plugin.Version(0x1B400000), 0x1B400000U);
    EXPECT_EQ(plugin.Version(0x1C000000), 0x1B400000U);
}

TEST(Init, SetsAFlagForHostsThatKnowIt) {
    const StandIn host;
    const Plugin plugin;
    u32 flags = 0x10;
    plugin.Version(0x0C010000);
    EXPECT_EQ(plugin.Init(&flags), 1);
    EXPECT_EQ(flags, 0x11U);
    flags = 0x10;
    plugin.Version(0x0C00FFFF);
    EXPECT_EQ(plugin.Init(&flags), 1);
    EXPECT_EQ(flags, 0x10U);
}

struct FolderCase {
    const char* name;
    const char* entry;
    bool isFolder;
    i16 loads;
};

class Folder : public testing::TestWithParam<FolderCase> {
protected:
    fs::path m_folder = fs::temp_directory_path() / ("plyweld_folder_" + std::to_string(getpid()));

    void SetUp() override { fs::create_directory(m_folder); }
    void TearDown() override { fs::remove_all(m_folder); }
};

TEST_P(Folder, BesideThePluginDecides) {
    const FolderCase& c = GetParam();
    const fs::path copy = m_folder / "plyweld.so";
    fs::copy_file(PLYWELD_PLUGIN, copy);
    fs::create_directory(m_folder / (c.isFolder ? c.entry : "Other"));
    if (!c.isFolder) {
        std::fclose(std::fopen((m_folder / c.entry).c_str(), "w"));
    }
    const StandIn host;
    const Plugin plugin{copy.string()};
    plugin.Version(kInterfaceVersion);
    EXPECT_EQ(plugin.Init(), c.loads);
    EXPECT_EQ(platform::headless::FireTimers(), c.loads);
}

INSTANTIATE_TEST_SUITE_P(Init, Folder,
                         testing::Values(FolderCase{"Miscellaneous", "Miscellaneous", true, 0},
                                         FolderCase{"Rests", "Multimeasure Rests", true, 0},
                                         FolderCase{"Sets", "Staff Sets", true, 0},
                                         FolderCase{"Transpose", "Transpose", true, 0},
                                         FolderCase{"WithExtension", "Transpose.old", true, 0},
                                         FolderCase{"OtherCase", "transpose", true, 1},
                                         FolderCase{"LongerName", "Transposer", true, 1},
                                         FolderCase{"PlainFile", "Transpose", false, 1}),
                         [](const auto& test) { return test.param.name; });

// A saved setting as it is stored.
#pragma pack(push, 2)
struct SavedSetting {
    u16 totalSize = 172;
    u16 headerSize = 160;
    u32 hostVersion = kInterfaceVersion;
    char name[128] = {};
    u16 commandItem = 0;
    u16 skipDialog = 0;
    u16 identifier = 0;
    u16 useSubmenu = 0;
    u8 reserved[16] = {};
    MergeOptions options;
};
#pragma pack(pop)
static_assert(sizeof(SavedSetting) == 172);

void Save(int number, const char* name, bool skipsDialog, bool useSubmenu = false,
          const MergeOptions& options = {}) {
    SavedSetting setting;
    std::strncpy(setting.name, name, sizeof(setting.name) - 1);
    setting.skipDialog = skipsDialog ? 1 : 0;
    setting.identifier = static_cast<u16>(number);
    setting.useSubmenu = useSubmenu ? 1 : 0;
    setting.options = options;
    Plugin::StoreBytes("Save Settings", "ZKSC" + std::to_string(22000 + number), &setting,
                       sizeof(setting));
}

struct Listed {
    std::u16string text;
    std::u16string description;
    u16 skipsDialog;
    u32 flags;
};

std::vector<Listed> ListItems(const Plugin& plugin) {
    std::vector<Listed> items;
    MenuItemDescriptor out{};
    out.flags = 0x80;
    for (i16 item = 0; plugin.Enumerate(item, &out) != 0; ++item) {
        EXPECT_EQ(std::u16string{out.text}, std::u16string{out.textCopy});
        EXPECT_EQ(out.alwaysOne, 1);
        items.push_back({out.text, out.description, out.skipsDialog, out.flags});
        out.flags = 0x80;
    }
    return items;
}

TEST(Items, TheCommandAlone) {
    StandIn host;
    const Plugin plugin;
    plugin.Version(kInterfaceVersion);
    ASSERT_EQ(plugin.Init(), 1);
    const auto items = ListItems(plugin);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].text, u"Plyweld...");
    EXPECT_EQ(items[0].description, u"Merges contents of two or more layers into a single layer.");
    EXPECT_EQ(items[0].skipsDialog, 0);
    EXPECT_EQ(+items[0].flags, 0x81U);
    EXPECT_EQ(plugin.Status(0), 1);
    EXPECT_EQ(platform::headless::FireTimers(), 1);
    EXPECT_EQ(platform::headless::FireTimers(), 0);
}

TEST(Items, SavedSettings) {
    StandIn host;
    const Plugin plugin;
    platform::headless::SetLanguage(platform::headless::Language::kSpanish);
    plugin.Version(kInterfaceVersion);
    const std::string longName(127, 'n');
    Save(1, "Slow", false);
    Save(2, longName.c_str(), true);
    ASSERT_EQ(plugin.Init(), 1);
    const auto items = ListItems(plugin);
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items[1].text, u"Slow...");
    EXPECT_EQ(items[1].description, u"Aplica ajustes guardados previamente de Plyweld.");
    EXPECT_EQ(items[1].skipsDialog, 0);
    EXPECT_EQ(+items[1].flags, 0x81U);
    EXPECT_EQ(items[2].text, std::u16string(127, u'n'));
    EXPECT_EQ(items[2].skipsDialog, 1);
    EXPECT_EQ(+items[2].flags, 0x80U);

    host.SelectNothing();
    EXPECT_EQ(plugin.Status(0), 1);
    EXPECT_EQ(plugin.Status(1), 1);
    EXPECT_EQ(plugin.Status(2), 0);
    host.SelectAll();
    EXPECT_EQ(plugin.Status(2), 1);
}

TEST(Items, ForASubmenuHaveAPrefix) {
    StandIn host;
    const Plugin plugin;
    plugin.Version(kInterfaceVersion);
    Save(1, "Slow", false, true);
    ASSERT_EQ(plugin.Init(), 1);
    const auto items = ListItems(plugin);
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].text, u"Plyweld 6.10...");
    EXPECT_EQ(items[1].text, u"Plyweld 6.10 Slow...");
}

TEST(Items, ASavedSettingRunsWithItsOptions) {
    StandIn host;
    host.Layer(1, 1, 2, "w:c4");
    host.SelectAll();
    const Plugin plugin;
    plugin.Version(kInterfaceVersion);
    Save(1, "Third into second", true, false, {.source = 2, .destination = 1});
    plugin.Init();
    plugin.Invoke(host, 1);
    EXPECT_EQ(host.Layer(1, 1, 1), "w:c4");
    EXPECT_EQ(host.Score().UndoTexts(), std::vector<std::u16string>{u"Third into second 1"});
    EXPECT_TRUE(Plugin::Stored("Plyweld", "ZKCF22000").empty());
    EXPECT_EQ(Plugin::Stored("Save Settings", "ZKSC22001").size(), 172U);

    plugin.Invoke(host, 2);
    ASSERT_EQ(App().alerts.size(), 1U);
    EXPECT_EQ(App().alerts[0].text,
              u"Internal Application Error at FinPI::Invoke->Saved settings for menu item not "
              u"found.");
}

}  // namespace
}  // namespace standin
