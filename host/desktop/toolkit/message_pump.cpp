#include "host/desktop/toolkit/message_pump.h"

#include <algorithm>
#include <array>

namespace standin::desktop {

namespace {

// A key with Ctrl, where it does not edit a text.
bool IsShortcut(const MSG& message) {
    std::array<wchar_t, 16> name{};
    GetClassNameW(message.hwnd, name.data(), static_cast<int>(name.size()));
    return message.message == WM_KEYDOWN && GetKeyState(VK_CONTROL) < 0 &&
           lstrcmpiW(name.data(), L"Edit") != 0;
}

}  // namespace

void MessagePump::SetAccelerators(HWND window, HACCEL accelerators) {
    m_acceleratorWindow = window;
    m_accelerators = accelerators;
}

bool MessagePump::TakeAccelerator(MSG& message) const {
    return m_accelerators != nullptr && IsWindowEnabled(m_acceleratorWindow) != 0 &&
           TranslateAcceleratorW(m_acceleratorWindow, m_accelerators, &message) != 0;
}

void MessagePump::Dispatch(MSG& message) {
    // A dialog may close, and leave the list, while it handles the message.
    const std::vector<HWND> dialogs = m_dialogs;
    const bool forMainWindow =
        message.hwnd == m_acceleratorWindow || IsChild(m_acceleratorWindow, message.hwnd) != 0;
    const bool forDialog = !forMainWindow && std::ranges::any_of(dialogs, [&message](HWND dialog) {
        return IsChild(dialog, message.hwnd) != 0;
    });
    const bool taken = (forDialog && IsShortcut(message) && TakeAccelerator(message)) ||
                       std::ranges::any_of(dialogs,
                                           [&message](HWND dialog) {
                                               return IsWindow(dialog) != 0 &&
                                                      IsDialogMessageW(dialog, &message) != 0;
                                           }) ||
                       (forMainWindow && TakeAccelerator(message));
    if (!taken) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    if (m_afterMessage) {
        m_afterMessage();
    }
}

int MessagePump::Run() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        Dispatch(message);
    }
    return static_cast<int>(message.wParam);
}

bool MessagePump::RunUntil(const std::function<bool()>& done) {
    MSG message;
    while (!done()) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        Dispatch(message);
    }
    return true;
}

bool MessagePump::RunWaiting() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        Dispatch(message);
    }
    return true;
}

}  // namespace standin::desktop
