// Reshaping the host's plug-in menu, which the host itself fills with one flat item for each
// command and saved setting.
//
// An item that is not found, or cannot be read, stays where the host put it, without an error.
#pragma once

#include <optional>
#include <string>

#include "platform/menu.h"
#include "shell/host/host_types.h"

struct FoundMenuItem {
    platform::Menu menu = nullptr;  // null = not found
    int position = 0;

    explicit operator bool() const noexcept { return menu != nullptr; }
};

// The first item of the tree whose text begins with this text; "&" in the menu's text is
// passed over. Items that open a submenu are searched, not compared.
FoundMenuItem FindMenuItemByText(platform::Menu menu, const std::u16string& text);

// Searches the host's menus from the sixth on; after the first hit only the menu of that hit.
FoundMenuItem FindPluginMenuItem(WindowHandle hostMainWindow, const std::u16string& text);

// Replaces the item searchText + "..." with a submenu whose first item is itemText + "..." and runs
// the same command. Null if the item does not exist or already opens a submenu.
platform::Menu MakePluginSubmenu(WindowHandle hostMainWindow, const std::u16string& submenuTitle,
                                 const std::u16string& itemText, const std::u16string& searchText);

// Moves an item to the submenu's end. Its new text: without a prefix, the replacement; with one,
// its own text without as many leading characters as the prefix has; else its own.
bool MoveItemToSubmenu(const FoundMenuItem& found, platform::Menu submenu,
                       const std::optional<std::u16string>& prefix,
                       const std::optional<std::u16string>& replacement);

// Moves the item prefix + label of the host's menu; its new text is what follows the prefix.
bool MoveSettingItem(WindowHandle hostMainWindow, platform::Menu submenu,
                     const std::u16string& label, const std::u16string& prefix);

// The registered window message with which other programs send menu events to open dialogs; its
// event long is the event's number.
u32 MenuEventMessage();
