// Menus of a window's menu bar. Positions count from 0.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/window.h"

struct HMENU__;

namespace platform {

using Menu = HMENU__*;

struct MenuItem {
    std::uint32_t command = 0;
    std::u16string text;     // at most 1023 units
    Menu submenu = nullptr;  // null when the item opens none
    bool greyed = false;     // or disabled
};

struct DestroyMenu {
    void operator()(Menu menu) const noexcept;
};
using OwnedMenu = std::unique_ptr<HMENU__, DestroyMenu>;

Menu MenuBar(Window window);  // null when the window has none
int MenuItemCount(Menu menu);
std::optional<MenuItem> ReadMenuItem(Menu menu, int position);

OwnedMenu CreatePopupMenu();  // null when the system gives none
// The menu bar's tree owns the submenu from here on. False: it stays the caller's.
bool InsertSubmenu(Menu menu, int position, const std::u16string& text, OwnedMenu& submenu);
bool AppendMenuItem(Menu menu, const std::u16string& text, std::uint32_t command, bool greyed);
void AppendMenuSeparator(Menu menu);
bool DeleteMenuItem(Menu menu, int position);

}  // namespace platform
