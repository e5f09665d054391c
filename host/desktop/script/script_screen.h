// The program's windows, controls and menu bar as a script sees them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/desktop/toolkit/windows_api.h"

namespace standin::desktop {

// The program's visible top-level windows, front to back.
std::vector<HWND> VisibleWindows(HWND mainWindow);
// The front dialog or message box that takes input; null if there is none.
HWND FrontDialog(HWND mainWindow);
HWND DialogTitled(HWND mainWindow, const std::wstring& title);

POINT MiddleOf(HWND window);
bool IsChecked(HWND control);

// A combo box's items, and the one that is chosen.
std::vector<std::wstring> ItemsOf(HWND comboBox);
std::optional<std::wstring> ChosenItem(HWND comboBox);
// The place of an item of the open list; nothing if it is not visible.
std::optional<POINT> ItemPlace(HWND comboBox, int index);

// A place in the menus: "&" and what follows a tab do not count.
struct MenuPlace {
    HMENU menu = nullptr;
    int position = 0;
};
std::wstring MenuItemText(HMENU menu, int position);  // empty for a line
// By the text that is shown, or by the English one of a menu of the program.
std::optional<MenuPlace> FindMenuItem(HMENU menu, const std::wstring& text);
// Along several menus. Nothing if one of them does not exist.
std::optional<MenuPlace> FindMenuPath(HWND mainWindow, const std::vector<std::string>& path);

// Opens the menus with the mouse, one after the other, and chooses the last item, with these
// keys held. An empty text, or what went wrong.
std::string ChooseMenuItem(HWND mainWindow, const std::vector<std::string>& path,
                           const std::vector<WORD>& held);
// Opens the menu at the end of the path and leaves it open.
std::string OpenMenu(HWND mainWindow, const std::vector<std::string>& path);

}  // namespace standin::desktop
