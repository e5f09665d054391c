// Reshaping the host's plug-in menu.
#include <gtest/gtest.h>

#include "Class Files/interface/HostMenu.h"
#include "platform/headless/window_model.h"

namespace {

// A menu's texts with its submenus in braces; "~" before a greyed item, "-" for a separator.
std::u16string Show(const HMENU__& menu) {
    std::u16string shown;
    for (const HMENU__::Item& item : menu.items) {
        shown += shown.empty() ? u"" : u"|";
        shown += item.separator ? u"-" : item.greyed ? u"~" : u"";
        shown += item.text;
        if (item.submenu != nullptr) {
            shown += u"{" + Show(*item.submenu) + u"}";
        }
    }
    return shown;
}

class HostMenuTest : public testing::Test {
protected:
    // Each test numbers its top-level menus differently, because a menu found once is remembered.
    HostMenuTest() {
        static u32 nextId = 1000;
        m_firstId = nextId;
        nextId += 100;
        m_window.menuBar.reset(new HMENU__);
        for (int position = 0; position < 5; ++position) {
            AddMenu({u"Plyweld 6.10..."});
        }
    }

    HMENU__& AddMenu(const std::vector<std::u16string>& items) {
        platform::OwnedMenu menu{new HMENU__};
        for (const std::u16string& text : items) {
            menu->items.push_back({text, 40 + static_cast<u32>(menu->items.size())});
        }
        HMENU__& added = *menu;
        auto& bar = m_window.menuBar->items;
        bar.push_back({u"Menu", m_firstId + static_cast<u32>(bar.size()), std::move(menu)});
        return added;
    }

    HWND__ m_window;
    u32 m_firstId;
};

TEST_F(HostMenuTest, SkipsFirstFiveMenus) {
    EXPECT_FALSE(FindPluginMenuItem(&m_window, u"Plyweld"));
    HMENU__& plugins = AddMenu({u"Other...", u"Ply&weld 6.10..."});
    const FoundMenuItem found = FindPluginMenuItem(&m_window, u"Plyweld 6.10...");
    EXPECT_EQ(found.menu, &plugins);
    EXPECT_EQ(found.position, 1);
}

TEST_F(HostMenuTest, SearchesSubmenusAndComparesBeginnings) {
    HMENU__& plugins = AddMenu({u"Plywel"});
    platform::OwnedMenu inner{new HMENU__};
    inner->items.push_back({u"Plyweld 6.10 Slow & sad...", 50});
    plugins.items.push_back({u"Plyweld", 0, std::move(inner)});
    EXPECT_FALSE(FindPluginMenuItem(&m_window, u"Plyweld 6.10..."));
    const FoundMenuItem found = FindPluginMenuItem(&m_window, u"Plyweld 6.10 Slow");
    EXPECT_EQ(found.menu, plugins.items[1].submenu.get());
    EXPECT_EQ(found.position, 0);
    EXPECT_EQ(FindPluginMenuItem(&m_window, u"").menu, &plugins) << "the first plain item";
}

TEST_F(HostMenuTest, ComparesVisibleAmpersands) {
    HMENU__& plugins = AddMenu({u"R&S", u"R&&&B...", u"R&&B"});
    EXPECT_EQ(FindPluginMenuItem(&m_window, u"R&B").position, 1);
    EXPECT_EQ(FindPluginMenuItem(&m_window, u"RS").menu, &plugins);
    EXPECT_FALSE(FindPluginMenuItem(&m_window, u"R&S")) << "its ampersand does not show";
    EXPECT_FALSE(FindPluginMenuItem(&m_window, u"RSB")) << "longer than the item";
}

TEST_F(HostMenuTest, SearchesOnlyTheMenuOfTheFirstHit) {
    AddMenu({u"Elsewhere"});
    AddMenu({u"Plyweld 6.10..."});
    EXPECT_TRUE(FindPluginMenuItem(&m_window, u"Plyweld"));
    EXPECT_FALSE(FindPluginMenuItem(&m_window, u"Elsewhere"));
    auto& bar = m_window.menuBar->items;
    std::swap(bar.front(), bar.back());
    EXPECT_FALSE(FindPluginMenuItem(&m_window, u"Elsewhere")) << "it is the first menu now";
    std::swap(bar.front(), bar.back());
    bar.pop_back();
    EXPECT_TRUE(FindPluginMenuItem(&m_window, u"Elsewhere")) << "that menu is gone";
}

TEST_F(HostMenuTest, MenusMayHaveNoNumbersOrItems) {
    m_window.menuBar->items.push_back({u"Help", 0});
    HMENU__& plugins = AddMenu({u"Plyweld 6.10..."});
    for (HMENU__::Item& top : m_window.menuBar->items) {
        top.command = 0;
    }
    for (int search = 1; search <= 2; ++search) {
        EXPECT_EQ(FindPluginMenuItem(&m_window, u"Plyweld").menu, &plugins) << search;
    }
}

TEST_F(HostMenuTest, BuildsSubmenu) {
    HMENU__& plugins = AddMenu({u"First", u"Plyweld 6.10...", u"Plyweld 6.10 A&B&&C...", u"Last"});
    plugins.items[1].greyed = true;
    const platform::Menu submenu =
        MakePluginSubmenu(&m_window, u"Plyweld", u"Plyweld", u"Plyweld 6.10");
    ASSERT_NE(submenu, nullptr);
    EXPECT_EQ(Show(plugins), u"First|Plyweld{~Plyweld...}|Plyweld 6.10 A&B&&C...|Last");
    platform::AppendMenuSeparator(submenu);
    EXPECT_TRUE(MoveSettingItem(&m_window, submenu, u"A&B&&C...", u"Plyweld 6.10 "));
    EXPECT_EQ(Show(plugins), u"First|Plyweld{~Plyweld...|-|A&B&&C...}|Last");
    EXPECT_EQ(submenu->items[0].command, 41U);
    EXPECT_EQ(submenu->items[2].command, 42U);
    EXPECT_FALSE(MoveSettingItem(&m_window, submenu, u"C...", u"Plyweld 6.10 "));
    EXPECT_EQ(MakePluginSubmenu(&m_window, u"Plyweld", u"Plyweld", u"Plyweld 6.10"), nullptr);
}

TEST_F(HostMenuTest, MovedItemGetsNewText) {
    HMENU__& plugins = AddMenu({u"Abcdef", u"Abcdef", u"Abcdef", u"Abcdef"});
    const platform::OwnedMenu target{new HMENU__};
    EXPECT_TRUE(MoveItemToSubmenu({&plugins, 0}, target.get(), u"xyz", std::nullopt));
    EXPECT_TRUE(MoveItemToSubmenu({&plugins, 0}, target.get(), u"Abcdef", u"unused"));
    EXPECT_TRUE(MoveItemToSubmenu({&plugins, 0}, target.get(), std::nullopt, u"New"));
    EXPECT_TRUE(MoveItemToSubmenu({&plugins, 0}, target.get(), std::nullopt, std::nullopt));
    EXPECT_EQ(Show(*target), u"def||New|Abcdef");
    EXPECT_FALSE(MoveItemToSubmenu({}, target.get(), std::nullopt, std::nullopt));
    plugins.items.push_back({u"Stays", 44});
    EXPECT_FALSE(MoveItemToSubmenu({&plugins, 0}, nullptr, std::nullopt, std::nullopt));
    EXPECT_EQ(Show(plugins), u"Stays");
    EXPECT_FALSE(MoveItemToSubmenu({&plugins, 9}, target.get(), std::nullopt, std::nullopt));
}

}  // namespace
