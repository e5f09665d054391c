#include "host/desktop/dialogs/windows_dialogs.h"

#include <array>
#include <optional>
#include <utility>

#include "host/desktop/toolkit/windows_disabled.h"
#include "platform/guarded.h"

namespace standin::desktop {

namespace {

bool Overlap(const RECT& a, const RECT& b) {
    RECT both{};
    return IntersectRect(&both, &a, &b) != 0;
}

// The default place of a dialog: the middle of its owner, or what is nearest to it beside the area
// that is to be kept clear, if the screen has room there.
void PlaceOver(HWND owner, HWND dialog, const std::optional<RECT>& keepClear) {
    RECT above{};
    RECT size{};
    RECT screen{};
    GetWindowRect(owner, &above);
    GetWindowRect(dialog, &size);
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    OffsetRect(&size, (above.left + above.right - size.left - size.right) / 2,
               (above.top + above.bottom - size.top - size.bottom) / 2);
    RECT place = size;
    if (keepClear && Overlap(place, *keepClear)) {
        const std::array<POINT, 4> moves{{{0, keepClear->bottom - size.top},
                                          {keepClear->right - size.left, 0},
                                          {keepClear->left - size.right, 0},
                                          {0, keepClear->top - size.bottom}}};
        for (const POINT& move : moves) {
            RECT candidate = size;
            OffsetRect(&candidate, move.x, move.y);
            RECT inside{};
            if (UnionRect(&inside, &screen, &candidate) != 0 && EqualRect(&inside, &screen) != 0) {
                place = candidate;
                break;
            }
        }
    }
    SetWindowPos(dialog, nullptr, place.left, place.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// The module whose resources hold a dialog: that of the routine which hears of its events.
HINSTANCE ModuleOf(DialogEventCallback callback) {
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<LPCWSTR>(callback), &module);
    return module;
}

}  // namespace

WindowsDialogs::WindowsDialogs(MessagePump& pump, HWND mainWindow)
    : m_pump{pump}, m_mainWindow{mainWindow} {}

void WindowsDialogs::CloseAll() {
    while (!m_open.empty()) {
        HWND window = m_open.begin()->first;
        DestroyWindow(window);
        m_open.erase(window);
    }
}

WindowsDialogs::OpenDialog* WindowsDialogs::Find(HWND window) {
    const auto found = m_open.find(window);
    return found == m_open.end() ? nullptr : found->second.get();
}

void WindowsDialogs::Forget(HWND window) {
    SetWindowLongPtrW(window, DWLP_USER, 0);
    m_pump.RemoveDialog(window);
    m_open.erase(window);
}

INT_PTR CALLBACK WindowsDialogs::Procedure(HWND window, UINT message, WPARAM word, LPARAM data) {
    return platform::Guarded(INT_PTR{FALSE}, [&] { return Handle(window, message, word, data); });
}

INT_PTR WindowsDialogs::Handle(HWND window, UINT message, WPARAM word, LPARAM data) {
    if (message == WM_INITDIALOG) {
        auto* service = reinterpret_cast<WindowsDialogs*>(data);
        auto& created = service->m_open[window] = std::move(service->m_created);
        PlaceOver(GetWindow(window, GW_OWNER), window, service->m_keepClear());
        SetWindowLongPtrW(window, DWLP_USER, reinterpret_cast<LONG_PTR>(created.get()));
    }
    auto* dialog = reinterpret_cast<OpenDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (dialog == nullptr) {
        return FALSE;
    }
    const i16 result = dialog->callback(window, message, word, data, dialog->object);
    if (message == WM_INITDIALOG) {
        dialog->opening = false;
        return result != 0 && !dialog->focusGiven ? TRUE : FALSE;
    }
    if (message == WM_DESTROY) {
        // Its object may be gone; a modal dialog is removed where it was run.
        SetWindowLongPtrW(window, DWLP_USER, 0);
        dialog->ended = true;
        if (!dialog->modal) {
            dialog->service->Forget(window);
        }
    }
    return ResultOf(window, message, result);
}

INT_PTR WindowsDialogs::ResultOf(HWND window, UINT message, i16 result) {
    switch (message) {
        case WM_CLOSE:
            // Otherwise the system would press Cancel as well.
            return TRUE;
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORSTATIC:
            return result;
        default:
            if (result != 0) {
                SetWindowLongPtrW(window, DWLP_MSGRESULT, result);
            }
            return result != 0 ? TRUE : FALSE;
    }
}

i16 WindowsDialogs::Dialog(u16 dialogNumber, DialogEventCallback callback, WindowHandle owner,
                           u16 flags, void* dialogObject) {
    const bool modal = (flags & 1U) != 0;
    m_created = std::make_unique<OpenDialog>();
    OpenDialog* dialog = m_created.get();
    dialog->service = this;
    dialog->callback = callback;
    dialog->object = dialogObject;
    dialog->modal = modal;
    std::optional<WindowsDisabled> others;
    if (modal) {
        others.emplace();
    }
    HWND window = CreateDialogParamW(ModuleOf(callback), MAKEINTRESOURCEW(dialogNumber),
                                     IsWindow(owner) != 0 ? owner : m_mainWindow, Procedure,
                                     reinterpret_cast<LPARAM>(this));
    if (window == nullptr) {
        m_created.reset();
        return 0;
    }
    if (!dialog->ended) {
        m_pump.AddDialog(window);
        ShowWindow(window, SW_SHOW);
    }
    if (modal) {
        m_pump.RunUntil([dialog] { return dialog->ended; });
        // First the others, so that one of them can become active.
        others.reset();
    }
    if (modal || dialog->ended) {
        DestroyWindow(window);
        Forget(window);
    }
    return 1;
}

i16 WindowsDialogs::EndDialog(WindowHandle window) {
    OpenDialog* dialog = Find(window);
    if (dialog == nullptr) {
        return 0;
    }
    dialog->ended = true;
    if (!dialog->modal && !dialog->opening) {
        DestroyWindow(window);
    }
    return 1;
}

}  // namespace standin::desktop
