#include "platform/menu.h"

#include "platform/headless/window_model.h"

namespace platform {

namespace {

HMENU__::Item* FindItem(Menu menu, int position) {
    if (menu == nullptr || position < 0 || position >= MenuItemCount(menu)) {
        return nullptr;
    }
    return &menu->items[static_cast<std::size_t>(position)];
}

}  // namespace

void DestroyMenu::operator()(Menu menu) const noexcept {
    delete menu;
}

Menu MenuBar(Window window) {
    return window == nullptr ? nullptr : window->menuBar.get();
}

int MenuItemCount(Menu menu) {
    return menu == nullptr ? 0 : static_cast<int>(menu->items.size());
}

std::optional<MenuItem> ReadMenuItem(Menu menu, int position) {
    const HMENU__::Item* item = FindItem(menu, position);
    if (item == nullptr) {
        return std::nullopt;
    }
    return MenuItem{item->command, item->text.substr(0, 1023), item->submenu.get(), item->greyed};
}

OwnedMenu CreatePopupMenu() {
    return OwnedMenu{new HMENU__};
}

bool InsertSubmenu(Menu menu, int position, const std::u16string& text, OwnedMenu& submenu) {
    if (menu == nullptr || position < 0 || position > MenuItemCount(menu)) {
        return false;
    }
    menu->items.insert(menu->items.begin() + position, HMENU__::Item{text, 0, std::move(submenu)});
    return true;
}

bool AppendMenuItem(Menu menu, const std::u16string& text, std::uint32_t command, bool greyed) {
    if (menu == nullptr) {
        return false;
    }
    menu->items.push_back({text, command, nullptr, greyed});
    return true;
}

void AppendMenuSeparator(Menu menu) {
    if (menu != nullptr) {
        menu->items.push_back({{}, 0, nullptr, false, true});
    }
}

bool DeleteMenuItem(Menu menu, int position) {
    if (FindItem(menu, position) == nullptr) {
        return false;
    }
    menu->items.erase(menu->items.begin() + position);
    return true;
}

}  // namespace platform
