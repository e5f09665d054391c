#include "host/desktop/toolkit/message_pump.h"

#include <algorithm>

namespace standin::desktop {

void MessagePump::SetAccelerators(HWND window, HACCEL accelerators) {
    m_acceleratorWindow = window;
    m_accelerators = accelerators;
}

void MessagePump::Dispatch(MSG& message) {
    // A dialog may close, and leave the list, while it handles the message.
    const std::vector<HWND> dialogs = m_dialogs;
    const bool taken = std::any_of(dialogs.begin(), dialogs.end(), [&message](HWND dialog) {
        return IsWindow(dialog) != 0 && IsDialogMessageW(dialog, &message) != 0;
    });
    const bool forMainWindow =
        m_accelerators != nullptr &&
        (message.hwnd == m_acceleratorWindow || IsChild(m_acceleratorWindow, message.hwnd) != 0);
    if (!taken && !(forMainWindow &&
                    TranslateAcceleratorW(m_acceleratorWindow, m_accelerators, &message) != 0)) {
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
