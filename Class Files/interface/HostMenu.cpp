#include "Class Files/interface/HostMenu.h"

#include <algorithm>

namespace {

constexpr int kFirstSearchedMenu = 5;  // from 0

// The command id of the top-level menu with the plug-in's items; 0 = not known yet.
u32 g_pluginMenuId = 0;

// Registered when the library is loaded.
const u32 g_menuEventMessage = platform::RegisterMessage("FinaleMenuEventForOrvandelPlugins");

bool BeginsWith(const std::u16string& menuText, const std::u16string& text) {
    std::size_t place = 0;
    for (const char16 character : text) {
        if (place < menuText.size() && menuText[place] == u'&') {
            ++place;
        }
        // The searched text must not contain "&&", which shows as an ampersand.
        while (place < menuText.size() && menuText[place] == u'&' && character != u'&') {
            ++place;
        }
        if (place >= menuText.size() || menuText[place] != character) {
            return false;
        }
        ++place;
    }
    return true;
}

// The submenu of the top-level item with this command id; null when there is none.
platform::Menu TopLevelMenu(platform::Menu bar, u32 command) {
    for (int position = 0; position < platform::MenuItemCount(bar); ++position) {
        const auto item = platform::ReadMenuItem(bar, position);
        if (item && item->command == command && item->submenu != nullptr) {
            return item->submenu;
        }
    }
    return nullptr;
}

std::u16string NewText(const std::u16string& text, const std::optional<std::u16string>& prefix,
                       const std::optional<std::u16string>& replacement) {
    if (!prefix) {
        return replacement.value_or(text);
    }
    return text.substr(std::min(prefix->size(), text.size()));
}

}  // namespace

FoundMenuItem FindMenuItemByText(platform::Menu menu, const std::u16string& text) {
    const int count = platform::MenuItemCount(menu);
    for (int position = 0; position < count; ++position) {
        const auto item = platform::ReadMenuItem(menu, position);
        if (item && item->submenu != nullptr) {
            if (const FoundMenuItem found = FindMenuItemByText(item->submenu, text)) {
                return found;
            }
        } else if (item && BeginsWith(item->text, text)) {
            return {menu, position};
        }
    }
    return {};
}

FoundMenuItem FindPluginMenuItem(WindowHandle hostMainWindow, const std::u16string& text) {
    const platform::Menu bar = platform::MenuBar(hostMainWindow);
    if (g_pluginMenuId != 0) {
        if (const platform::Menu menu = TopLevelMenu(bar, g_pluginMenuId)) {
            return FindMenuItemByText(menu, text);
        }
    }
    const int count = platform::MenuItemCount(bar);
    for (int position = kFirstSearchedMenu; position < count; ++position) {
        const auto top = platform::ReadMenuItem(bar, position);
        const FoundMenuItem found = top ? FindMenuItemByText(top->submenu, text) : FoundMenuItem{};
        if (found) {
            g_pluginMenuId = top->command;
            return found;
        }
    }
    return {};
}

platform::Menu MakePluginSubmenu(WindowHandle hostMainWindow, const std::u16string& submenuTitle,
                                 const std::u16string& itemText, const std::u16string& searchText) {
    const FoundMenuItem found = FindPluginMenuItem(hostMainWindow, searchText + u"...");
    if (!found) {
        return nullptr;
    }
    const auto item = platform::ReadMenuItem(found.menu, found.position);
    if (!item || item->submenu != nullptr) {
        return nullptr;
    }
    platform::OwnedMenu popup = platform::CreatePopupMenu();
    const platform::Menu submenu = popup.get();
    if (submenu == nullptr ||
        !platform::AppendMenuItem(submenu, itemText + u"...", item->command, item->greyed) ||
        !platform::InsertSubmenu(found.menu, found.position, submenuTitle, popup)) {
        return nullptr;
    }
    platform::DeleteMenuItem(found.menu, found.position + 1);
    return submenu;
}

bool MoveItemToSubmenu(const FoundMenuItem& found, platform::Menu submenu,
                       const std::optional<std::u16string>& prefix,
                       const std::optional<std::u16string>& replacement) {
    if (!found) {
        return false;
    }
    const auto item = platform::ReadMenuItem(found.menu, found.position);
    if (!item) {
        return false;
    }
    const std::u16string text = NewText(item->text, prefix, replacement);
    if (!platform::AppendMenuItem(submenu, text, item->command, false)) {
        return false;
    }
    return platform::DeleteMenuItem(found.menu, found.position);
}

bool MoveSettingItem(WindowHandle hostMainWindow, platform::Menu submenu,
                     const std::u16string& label, const std::u16string& prefix) {
    std::u16string searched = prefix + label;
    std::erase(searched, u'&');
    return MoveItemToSubmenu(FindPluginMenuItem(hostMainWindow, searched), submenu, prefix, label);
}

u32 MenuEventMessage() {
    return g_menuEventMessage;
}
