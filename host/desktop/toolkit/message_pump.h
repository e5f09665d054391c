// The messages of the user-interface thread. Open dialogs get their keys first (Tab, arrows,
// Enter, Esc), then the main window's accelerators; those with Ctrl hold in a dialog, too, except
// while the user edits text.
#pragma once

#include <functional>
#include <vector>

#include "host/desktop/toolkit/windows_api.h"

namespace standin::desktop {

class MessagePump {
public:
    void AddDialog(HWND dialog) { m_dialogs.push_back(dialog); }
    void RemoveDialog(HWND dialog) { std::erase(m_dialogs, dialog); }
    const std::vector<HWND>& Dialogs() const noexcept { return m_dialogs; }

    void SetAccelerators(HWND window, HACCEL accelerators);
    // Called after each message, also inside the loops of modal dialogs.
    void SetAfterMessage(std::function<void()> routine) { m_afterMessage = std::move(routine); }

    // Runs until the program is asked to end. Returns its exit code.
    int Run();
    // Runs until done returns true. False if the program is asked to end first; an outer loop then
    // still sees that request.
    bool RunUntil(const std::function<bool()>& done);
    // Processes the waiting messages. False as for RunUntil.
    bool RunWaiting();

private:
    void Dispatch(MSG& message);
    bool TakeAccelerator(MSG& message) const;

    std::vector<HWND> m_dialogs;
    HWND m_acceleratorWindow = nullptr;
    HACCEL m_accelerators = nullptr;
    std::function<void()> m_afterMessage;
};

}  // namespace standin::desktop
