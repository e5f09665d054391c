// The dialog callbacks with real dialogs, from the templates in the plug-in's own resources.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "host/desktop/toolkit/message_pump.h"
#include "host/desktop/toolkit/windows_api.h"
#include "host/score/dialog_service.h"

namespace standin::desktop {

class WindowsDialogs final : public DialogService {
public:
    // The main window owns dialogs that are opened without an owner.
    WindowsDialogs(MessagePump& pump, HWND mainWindow);
    ~WindowsDialogs() override { CloseAll(); }

    // Where a dialog should not open, if there is room elsewhere.
    void SetKeepClear(std::function<std::optional<RECT>()> area) { m_keepClear = std::move(area); }

    // Closes all open dialogs; the plug-in gets the usual events.
    void CloseAll();

    i16 Dialog(u16 dialogNumber, DialogEventCallback callback, WindowHandle owner, u16 flags,
               void* dialogObject) override;
    // A modal dialog closes at the next turn of its loop, a modeless one at once.
    i16 EndDialog(WindowHandle window) override;
    u32 GetItemVal(WindowHandle window, u16 control, i16 kind) override;
    i16 SetItemVal(WindowHandle window, u16 control, i16 kind, u32 value) override;
    u32 GetCntlVal(WindowHandle window, u16 control) override;
    i16 SetCntlVal(WindowHandle window, u16 control, u32 value) override;
    std::u16string GetString(WindowHandle window, u16 control) override;
    i16 SetString(WindowHandle window, u16 control, const std::u16string& text) override;
    i16 Enable(WindowHandle window, u16 control, bool enabled) override;
    i16 Show(WindowHandle window, u16 control, bool shown) override;
    i16 SetFocus(WindowHandle window, u16 control) override;
    i16 GetItemUser(WindowHandle window, u16 control, i16 kind, double* out) override;
    i16 SetItemUser(WindowHandle window, u16 control, i16 kind, double value) override;
    i16 SetTimer(WindowHandle window, u64 timer, u32 milliseconds) override;
    i16 KillTimer(WindowHandle window, u64 timer) override;

private:
    struct OpenDialog {
        WindowsDialogs* service = nullptr;
        DialogEventCallback callback = nullptr;
        void* object = nullptr;
        bool modal = false;
        bool ended = false;
        bool opening = true;      // its creation event has not returned
        bool focusGiven = false;  // the plug-in set the focus while it was opening
    };

    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM data);
    static INT_PTR Handle(HWND window, UINT message, WPARAM word, LPARAM data);
    static INT_PTR ResultOf(HWND window, UINT message, i16 result);
    // Null for a window that is not an open dialog of this service.
    OpenDialog* Find(HWND window);
    void Forget(HWND window);

    MessagePump& m_pump;
    std::function<std::optional<RECT>()> m_keepClear = [] { return std::optional<RECT>{}; };
    HWND m_mainWindow;
    std::unique_ptr<OpenDialog> m_created;  // until its creation event
    std::map<HWND, std::unique_ptr<OpenDialog>> m_open;
};

}  // namespace standin::desktop
