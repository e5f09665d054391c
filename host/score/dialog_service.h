// The dialog callbacks' interface to the program that shows dialogs. A program installs one in the
// application; without one every dialog callback returns 0.
#pragma once

#include <string>

#include "shell/host/host_functions.h"

namespace standin {

class DialogService {
public:
    virtual ~DialogService() = default;

    // The same results as the callbacks of the same names.
    virtual i16 Dialog(u16 dialogNumber, DialogEventCallback callback, WindowHandle owner,
                       u16 flags, void* dialogObject) = 0;
    virtual i16 EndDialog(WindowHandle window) = 0;
    virtual u32 GetItemVal(WindowHandle window, u16 control, i16 kind) = 0;
    virtual i16 SetItemVal(WindowHandle window, u16 control, i16 kind, u32 value) = 0;
    virtual u32 GetCntlVal(WindowHandle window, u16 control) = 0;
    virtual i16 SetCntlVal(WindowHandle window, u16 control, u32 value) = 0;
    // Empty when the control has no text or does not exist.
    virtual std::u16string GetString(WindowHandle window, u16 control) = 0;
    virtual i16 SetString(WindowHandle window, u16 control, const std::u16string& text) = 0;
    virtual i16 Enable(WindowHandle window, u16 control, bool enabled) = 0;
    virtual i16 Show(WindowHandle window, u16 control, bool shown) = 0;
    virtual i16 SetFocus(WindowHandle window, u16 control) = 0;
    virtual i16 GetItemUser(WindowHandle window, u16 control, i16 kind, double* out) = 0;
    virtual i16 SetItemUser(WindowHandle window, u16 control, i16 kind, double value) = 0;
    virtual i16 SetTimer(WindowHandle window, u64 timer, u32 milliseconds) = 0;
    virtual i16 KillTimer(WindowHandle window, u64 timer) = 0;
};

}  // namespace standin
