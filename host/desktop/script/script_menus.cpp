// Menu navigation of scripts.
#include <algorithm>
#include <array>

#include "host/desktop/script/patience.h"
#include "host/desktop/script/script_input.h"
#include "host/desktop/script/script_screen.h"
#include "host/desktop/toolkit/wide_text.h"

namespace standin::desktop {

namespace {

constexpr int kComesUp = 1500;  // milliseconds that a menu may take to do so
// A click soon after another at the same place is half of a double click, which opens no menu.
constexpr int kTries = 3;

// Without the key and the shortcut.
std::wstring Plain(std::wstring text) {
    text.resize(std::min(text.find(L'\t'), text.size()));
    std::erase(text, L'&');
    return text;
}

// A menu's or an item's English text as the menu bar now shows it; others as they are.
std::wstring Translated(const std::wstring& english) {
    for (int i = static_cast<int>(Text::kMenuFile); i <= static_cast<int>(Text::kMenuAbout); ++i) {
        const auto text = static_cast<Text>(i);
        const std::wstring pattern = Plain(WideFromUtf8(SayIn(Language::kEnglish, text)));
        const std::size_t value = pattern.find(L"{0}");
        if (pattern == english) {
            return Plain(WideText(text));
        }
        if (value != pattern.npos && english.starts_with(pattern.substr(0, value))) {
            return Plain(WideText(text, {Utf8(english.substr(value))}));
        }
    }
    return english;
}

POINT MiddleOf(const RECT& rect) {
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

bool ShowsMenu(HWND mainWindow) {
    const auto windows = VisibleWindows(mainWindow);
    return std::ranges::any_of(windows, [](HWND window) {
        std::array<wchar_t, 16> name{};
        GetClassNameW(window, name.data(), static_cast<int>(name.size()));
        return lstrcmpW(name.data(), L"#32768") == 0;
    });
}

// The place of an item of an open menu; nothing if the menu does not appear.
std::optional<POINT> WaitForItem(HWND mainWindow, const MenuPlace& place) {
    for (int waited = 0; waited < kComesUp; waited += kLook) {
        RECT rect{};
        if (ShowsMenu(mainWindow) &&
            GetMenuItemRect(nullptr, place.menu, static_cast<UINT>(place.position), &rect) != 0 &&
            rect.right > rect.left) {
            return MiddleOf(rect);
        }
        Sleep(kLook);
    }
    return std::nullopt;
}

bool IsGreyed(const MenuPlace& place) {
    const UINT state = GetMenuState(place.menu, static_cast<UINT>(place.position), MF_BYPOSITION);
    return (state & (MF_GRAYED | MF_DISABLED)) != 0;
}

POINT BarPlace(HWND mainWindow, const MenuPlace& place) {
    RECT rect{};
    GetMenuItemRect(mainWindow, place.menu, static_cast<UINT>(place.position), &rect);
    return MiddleOf(rect);
}

// Opens a menu of the bar. False: it does not appear.
bool OpenFromBar(HWND mainWindow, const MenuPlace& place) {
    HMENU menu = GetSubMenu(place.menu, place.position);
    for (int i = 0; i < kTries; ++i) {
        ClickAt(mainWindow, BarPlace(mainWindow, place));
        if (WaitForItem(mainWindow, {menu, 0})) {
            return true;
        }
        SendMessageW(mainWindow, WM_CANCELMODE, 0, 0);
        Sleep(GetDoubleClickTime());
    }
    return false;
}

// Clicks from the bar down to the item at the end of the path; the last click with the keys.
std::string ClickAlong(HWND mainWindow, const std::vector<std::string>& path,
                       const std::vector<WORD>& held) {
    HMENU menu = GetMenu(mainWindow);
    for (std::size_t depth = 0; depth < path.size(); ++depth) {
        const auto place = FindMenuItem(menu, WideFromUtf8(path[depth]));
        if (!place) {
            return "there is no menu item " + path[depth];
        }
        if (IsGreyed(*place)) {
            return path[depth] + " is greyed";
        }
        if (depth == 0) {
            if (!OpenFromBar(mainWindow, *place)) {
                return "the menu " + path[depth] + " does not come up";
            }
        } else {
            const auto shown = WaitForItem(mainWindow, *place);
            if (!shown) {
                return "the menu with " + path[depth] + " does not come up";
            }
            ClickAt(mainWindow, *shown, depth + 1 == path.size() ? held : std::vector<WORD>{});
        }
        menu = GetSubMenu(menu, place->position);
    }
    return {};
}

}  // namespace

std::wstring MenuItemText(HMENU menu, int position) {
    std::array<wchar_t, 512> buffer{};
    GetMenuStringW(menu, static_cast<UINT>(position), buffer.data(),
                   static_cast<int>(buffer.size()), MF_BYPOSITION);
    return Plain(buffer.data());
}

std::optional<MenuPlace> FindMenuItem(HMENU menu, const std::wstring& text) {
    const int count = GetMenuItemCount(menu);
    const std::wstring translated = Translated(text);
    for (int position = 0; position < count; ++position) {
        const std::wstring item = MenuItemText(menu, position);
        if (item == text || item == translated) {
            return MenuPlace{menu, position};
        }
    }
    return std::nullopt;
}

std::optional<MenuPlace> FindMenuPath(HWND mainWindow, const std::vector<std::string>& path) {
    std::optional<MenuPlace> place;
    HMENU menu = GetMenu(mainWindow);
    for (const std::string& name : path) {
        place = FindMenuItem(menu, WideFromUtf8(name));
        if (!place) {
            return std::nullopt;
        }
        menu = GetSubMenu(menu, place->position);
    }
    return place;
}

std::string ChooseMenuItem(HWND mainWindow, const std::vector<std::string>& path,
                           const std::vector<WORD>& held) {
    std::string problem = ClickAlong(mainWindow, path, held);
    if (!problem.empty()) {
        SendMessageW(mainWindow, WM_CANCELMODE, 0, 0);
    }
    return problem;
}

std::string OpenMenu(HWND mainWindow, const std::vector<std::string>& path) {
    std::string problem = ClickAlong(mainWindow, path, {});
    const auto place = FindMenuPath(mainWindow, path);
    if (problem.empty() && place) {
        HMENU opened = GetSubMenu(place->menu, place->position);
        if (!WaitForItem(mainWindow, {opened, 0})) {
            problem = "the menu does not come up";
        }
    }
    return problem;
}

}  // namespace standin::desktop
