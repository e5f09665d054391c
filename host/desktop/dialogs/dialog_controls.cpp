// The controls of dialogs: values, texts, states, timers.
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "host/desktop/dialogs/windows_dialogs.h"
#include "host/desktop/toolkit/wide_text.h"

namespace standin::desktop {

namespace {

enum class ControlKind { kComboBox, kListBox, kButton, kOther };

ControlKind KindOf(HWND control) {
    std::array<wchar_t, 64> name{};
    GetClassNameW(control, name.data(), static_cast<int>(name.size()));
    const auto is = [&name](const wchar_t* known) { return lstrcmpiW(name.data(), known) == 0; };
    if (is(L"ComboBox")) {
        return ControlKind::kComboBox;
    }
    if (is(L"ListBox")) {
        return ControlKind::kListBox;
    }
    return is(L"Button") ? ControlKind::kButton : ControlKind::kOther;
}

// A list counts from 0, and -1 means none; the interface counts from 1.
u32 PositionFrom(LRESULT index) {
    return index < 0 ? 0U : static_cast<u32>(index) + 1U;
}

WPARAM IndexFrom(u32 position) {
    return static_cast<WPARAM>(static_cast<INT_PTR>(position) - 1);
}

}  // namespace

u32 WindowsDialogs::GetItemVal(WindowHandle window, u16 control, i16 /*kind*/) {
    return IsDlgButtonChecked(window, control) == BST_CHECKED ? 1U : 0U;
}

i16 WindowsDialogs::SetItemVal(WindowHandle window, u16 control, i16 /*kind*/, u32 value) {
    return CheckDlgButton(window, control, value != 0 ? BST_CHECKED : BST_UNCHECKED) != 0 ? 1 : 0;
}

u32 WindowsDialogs::GetCntlVal(WindowHandle window, u16 control) {
    HWND item = GetDlgItem(window, control);
    switch (KindOf(item)) {
        case ControlKind::kComboBox:
            return PositionFrom(SendMessageW(item, CB_GETCURSEL, 0, 0));
        case ControlKind::kListBox:
            return PositionFrom(SendMessageW(item, LB_GETCURSEL, 0, 0));
        case ControlKind::kButton:
            return SendMessageW(item, BM_GETCHECK, 0, 0) == BST_CHECKED ? 1U : 0U;
        default:
            return GetDlgItemInt(window, control, nullptr, TRUE);
    }
}

i16 WindowsDialogs::SetCntlVal(WindowHandle window, u16 control, u32 value) {
    HWND item = GetDlgItem(window, control);
    if (item == nullptr) {
        return 0;
    }
    switch (KindOf(item)) {
        case ControlKind::kComboBox:
            SendMessageW(item, CB_SETCURSEL, IndexFrom(value), 0);
            break;
        case ControlKind::kListBox:
            SendMessageW(item, LB_SETCURSEL, IndexFrom(value), 0);
            break;
        case ControlKind::kButton:
            SendMessageW(item, BM_SETCHECK, value != 0 ? BST_CHECKED : BST_UNCHECKED, 0);
            break;
        default:
            SetDlgItemInt(window, control, value, TRUE);
            break;
    }
    return 1;
}

std::u16string WindowsDialogs::GetString(WindowHandle window, u16 control) {
    HWND item = GetDlgItem(window, control);
    return item == nullptr ? std::u16string{} : Utf16(TextOf(item));
}

i16 WindowsDialogs::SetString(WindowHandle window, u16 control, const std::u16string& text) {
    return SetDlgItemTextW(window, control, Wide(text).c_str()) != 0 ? 1 : 0;
}

i16 WindowsDialogs::Enable(WindowHandle window, u16 control, bool enabled) {
    HWND item = GetDlgItem(window, control);
    if (item == nullptr) {
        return 0;
    }
    if (!enabled && GetFocus() == item) {
        // A disabled control would keep the keys of the whole dialog.
        SendMessageW(window, WM_NEXTDLGCTL, 0, FALSE);
    }
    EnableWindow(item, enabled ? TRUE : FALSE);
    return 1;
}

i16 WindowsDialogs::Show(WindowHandle window, u16 control, bool shown) {
    HWND item = GetDlgItem(window, control);
    if (item == nullptr) {
        return 0;
    }
    ShowWindow(item, shown ? SW_SHOWNA : SW_HIDE);
    return 1;
}

i16 WindowsDialogs::SetFocus(WindowHandle window, u16 control) {
    HWND item = GetDlgItem(window, control);
    if (item == nullptr) {
        return 0;
    }
    SendMessageW(window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(item), TRUE);
    if (OpenDialog* dialog = Find(window); dialog != nullptr && dialog->opening) {
        dialog->focusGiven = true;
    }
    return 1;
}

// Numbers are written with a point; a comma is read as one.
i16 WindowsDialogs::GetItemUser(WindowHandle window, u16 control, i16 /*kind*/, double* out) {
    std::string text = Utf8(Wide(GetString(window, control)));
    for (char& character : text) {
        character = character == ',' ? '.' : character;
    }
    const std::size_t start = text.find_first_not_of(' ');
    if (start == std::string::npos) {
        return 0;
    }
    const auto read = std::from_chars(text.data() + start, text.data() + text.size(), *out);
    return read.ec == std::errc{} ? 1 : 0;
}

i16 WindowsDialogs::SetItemUser(WindowHandle window, u16 control, i16 /*kind*/, double value) {
    std::array<char, 64> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    const std::string_view text{digits.data(),
                                static_cast<std::size_t>(written.ptr - digits.data())};
    return SetDlgItemTextW(window, control, WideFromUtf8(text).c_str()) != 0 ? 1 : 0;
}

i16 WindowsDialogs::SetTimer(WindowHandle window, u64 timer, u32 milliseconds) {
    return ::SetTimer(window, timer, milliseconds, nullptr) != 0 ? 1 : 0;
}

i16 WindowsDialogs::KillTimer(WindowHandle window, u64 timer) {
    return ::KillTimer(window, timer) != 0 ? 1 : 0;
}

}  // namespace standin::desktop
