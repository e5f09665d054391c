#include "platform/menu.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace platform {

void DestroyMenu::operator()(Menu menu) const noexcept {
    ::DestroyMenu(menu);
}

Menu MenuBar(Window window) {
    return GetMenu(window);
}

int MenuItemCount(Menu menu) {
    return std::max(0, GetMenuItemCount(menu));
}

std::optional<MenuItem> ReadMenuItem(Menu menu, int position) {
    if (position < 0) {
        return std::nullopt;
    }
    std::array<wchar_t, 1024> text{};
    MENUITEMINFOW info{};
    info.cbSize = sizeof(info);
    info.fMask = MIIM_ID | MIIM_STATE | MIIM_SUBMENU | MIIM_STRING;
    info.dwTypeData = text.data();
    info.cch = static_cast<UINT>(text.size());
    if (GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info) == 0) {
        return std::nullopt;
    }
    const std::size_t length = std::min<std::size_t>(info.cch, text.size() - 1);
    return MenuItem{info.wID, std::u16string(text.begin(), text.begin() + length), info.hSubMenu,
                    (info.fState & MFS_GRAYED) != 0};
}

OwnedMenu CreatePopupMenu() {
    return OwnedMenu{::CreatePopupMenu()};
}

bool InsertSubmenu(Menu menu, int position, const std::u16string& text, OwnedMenu& submenu) {
    if (InsertMenuW(menu, static_cast<UINT>(position), MF_BYPOSITION | MF_POPUP | MF_STRING,
                    reinterpret_cast<UINT_PTR>(submenu.get()),
                    reinterpret_cast<const wchar_t*>(text.c_str())) == 0) {
        return false;
    }
    static_cast<void>(submenu.release());
    return true;
}

bool AppendMenuItem(Menu menu, const std::u16string& text, std::uint32_t command, bool greyed) {
    return AppendMenuW(menu, MF_STRING | (greyed ? MF_GRAYED : 0U), command,
                       reinterpret_cast<const wchar_t*>(text.c_str())) != 0;
}

void AppendMenuSeparator(Menu menu) {
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
}

bool DeleteMenuItem(Menu menu, int position) {
    return ::DeleteMenu(menu, static_cast<UINT>(position), MF_BYPOSITION) != 0;
}

}  // namespace platform
