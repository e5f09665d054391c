#include "host/desktop/script/script_screen.h"

#include <algorithm>
#include <array>

#include "host/desktop/toolkit/enumerate_windows.h"
#include "host/desktop/toolkit/wide_text.h"

namespace standin::desktop {

namespace {

bool HasClass(HWND window, const wchar_t* name) {
    std::array<wchar_t, 64> actual{};
    GetClassNameW(window, actual.data(), static_cast<int>(actual.size()));
    return lstrcmpiW(actual.data(), name) == 0;
}

}  // namespace

std::vector<HWND> VisibleWindows(HWND mainWindow) {
    const DWORD thread = GetWindowThreadProcessId(mainWindow, nullptr);
    std::vector<HWND> found;
    ForEachWindow([&](HWND window) {
        if (GetWindowThreadProcessId(window, nullptr) == thread && IsWindowVisible(window) != 0) {
            found.push_back(window);
        }
    });
    return found;
}

HWND FrontDialog(HWND mainWindow) {
    HWND active = GetForegroundWindow();
    const std::vector<HWND> windows = VisibleWindows(mainWindow);
    const auto takesInput = [mainWindow](HWND window) {
        return window != mainWindow && IsWindowEnabled(window) != 0 &&
               !HasClass(window, L"#32768") && !HasClass(window, L"ComboLBox");
    };
    if (std::ranges::find(windows, active) != windows.end() && takesInput(active)) {
        return active;
    }
    const auto found = std::ranges::find_if(windows, takesInput);
    return found == windows.end() ? nullptr : *found;
}

HWND DialogTitled(HWND mainWindow, const std::wstring& title) {
    const std::vector<HWND> windows = VisibleWindows(mainWindow);
    const auto found = std::ranges::find_if(
        windows, [&](HWND window) { return window != mainWindow && TextOf(window) == title; });
    return found == windows.end() ? nullptr : *found;
}

POINT MiddleOf(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

bool IsChecked(HWND control) {
    return SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

std::vector<std::wstring> ItemsOf(HWND comboBox) {
    std::vector<std::wstring> items;
    const auto count = static_cast<int>(SendMessageW(comboBox, CB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        const LRESULT length = SendMessageW(comboBox, CB_GETLBTEXTLEN, static_cast<WPARAM>(i), 0);
        std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1, L'\0');
        SendMessageW(comboBox, CB_GETLBTEXT, static_cast<WPARAM>(i),
                     reinterpret_cast<LPARAM>(text.data()));
        text.pop_back();
        items.push_back(text);
    }
    return items;
}

std::optional<std::wstring> ChosenItem(HWND comboBox) {
    const auto index = static_cast<std::size_t>(SendMessageW(comboBox, CB_GETCURSEL, 0, 0));
    const auto items = ItemsOf(comboBox);
    return index < items.size() ? std::optional{items[index]} : std::nullopt;
}

std::optional<POINT> ItemPlace(HWND comboBox, int index) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    if (SendMessageW(comboBox, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info)) == 0) {
        return std::nullopt;
    }
    RECT item{};
    RECT list{};
    SendMessageW(info.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&item));
    GetClientRect(info.hwndList, &list);
    POINT middle{(item.left + item.right) / 2, (item.top + item.bottom) / 2};
    if (IsWindowVisible(info.hwndList) == 0 || PtInRect(&list, middle) == 0) {
        return std::nullopt;
    }
    ClientToScreen(info.hwndList, &middle);
    return middle;
}

}  // namespace standin::desktop
