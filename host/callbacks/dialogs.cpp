// The dialog callbacks, forwarded to the program's dialog service.
#include "host/callbacks/serve.h"
#include "shell/host/host_functions.h"

using namespace standin;

namespace {

// 0 without a dialog service.
template <typename Result, typename Body>
Result ServeDialog(HostCall call, u32 version, Result refused, Body body) noexcept {
    return Serve(call, version, refused, [&](Application& app) -> Result {
        return app.dialogs == nullptr ? refused : body(*app.dialogs);
    });
}

}  // namespace

i16 FX_Dialog(u16 dialogNumber, DialogEventCallback callback, WindowHandle owner, u16 flags,
              void* dialogObject, u32 version) {
    return ServeDialog(HostCall::kDialog, version, i16{0}, [&](DialogService& dialogs) {
        return dialogs.Dialog(dialogNumber, callback, owner, flags, dialogObject);
    });
}

i16 FX_EndDialog(WindowHandle window, u32 version) {
    return ServeDialog(HostCall::kEndDialog, version, i16{0},
                       [&](DialogService& dialogs) { return dialogs.EndDialog(window); });
}

u32 FX_GetDlgItemVal(WindowHandle window, u16 control, i16 kind, u32 version) {
    return ServeDialog(HostCall::kGetDlgItemVal, version, u32{0}, [&](DialogService& dialogs) {
        return dialogs.GetItemVal(window, control, kind);
    });
}

i16 FX_SetDlgItemVal(WindowHandle window, u16 control, i16 kind, u32 value, u32 version) {
    return ServeDialog(HostCall::kSetDlgItemVal, version, i16{0}, [&](DialogService& dialogs) {
        return dialogs.SetItemVal(window, control, kind, value);
    });
}

u32 FX_GetDlgCntlVal(WindowHandle window, u16 control, i16 zero, i16 alsoZero, u32 version) {
    return ServeDialog(HostCall::kGetDlgCntlVal, version, u32{0}, [&](DialogService& dialogs) {
        return zero == 0 && alsoZero == 0 ? dialogs.GetCntlVal(window, control) : u32{0};
    });
}

i16 FX_SetDlgCntlVal(WindowHandle window, u16 control, i16 zero, u32 value, u32 version) {
    return ServeDialog(HostCall::kSetDlgCntlVal, version, i16{0}, [&](DialogService& dialogs) {
        return zero == 0 ? dialogs.SetCntlVal(window, control, value) : i16{0};
    });
}

i16 FX_GetDlgString_UTF16(WindowHandle window, u16 control, char16* buffer, u32 units,
                          u32 version) {
    return ServeDialog(
        HostCall::kGetDlgString, version, i16{0}, [&](DialogService& dialogs) -> i16 {
            const bool copied = CopyText(dialogs.GetString(window, control), buffer, units);
            return copied ? i16{1} : i16{0};
        });
}

i16 FX_SetDlgString_UTF16(WindowHandle window, u16 control, const char16* text, u32 version) {
    return ServeDialog(
        HostCall::kSetDlgString, version, i16{0}, [&](DialogService& dialogs) -> i16 {
            return text == nullptr ? i16{0} : dialogs.SetString(window, control, text);
        });
}

i16 FX_EnableDlgItem(WindowHandle window, u16 control, i16 enabled, u32 version) {
    return ServeDialog(HostCall::kEnableDlgItem, version, i16{0}, [&](DialogService& dialogs) {
        return dialogs.Enable(window, control, enabled != 0);
    });
}

i16 FX_ShowHideDlgItem(WindowHandle window, u16 control, i16 shown, u32 version) {
    return ServeDialog(HostCall::kShowHideDlgItem, version, i16{0}, [&](DialogService& dialogs) {
        return dialogs.Show(window, control, shown != 0);
    });
}

i16 FX_SetDlgFocus(WindowHandle window, u16 control, u32 version) {
    return ServeDialog(HostCall::kSetDlgFocus, version, i16{0},
                       [&](DialogService& dialogs) { return dialogs.SetFocus(window, control); });
}

i16 FX_GetDlgItemUser(WindowHandle window, u16 control, i16 kind, double* out, u32 version) {
    return ServeDialog(
        HostCall::kGetDlgItemUser, version, i16{0}, [&](DialogService& dialogs) -> i16 {
            return out == nullptr ? i16{0} : dialogs.GetItemUser(window, control, kind, out);
        });
}

i16 FX_SetDlgItemUser(WindowHandle window, u16 control, i16 kind, double value, u32 version) {
    return ServeDialog(HostCall::kSetDlgItemUser, version, i16{0}, [&](DialogService& dialogs) {
        return dialogs.SetItemUser(window, control, kind, value);
    });
}

i16 FX_SetTimer(WindowHandle window, u64 timer, u32 milliseconds, u32 version) {
    return ServeDialog(HostCall::kSetTimer, version, i16{0}, [&](DialogService& dialogs) {
        return dialogs.SetTimer(window, timer, milliseconds);
    });
}

i16 FX_KillTimer(WindowHandle window, u64 timer, u32 version) {
    return ServeDialog(HostCall::kKillTimer, version, i16{0},
                       [&](DialogService& dialogs) { return dialogs.KillTimer(window, timer); });
}

i16 FX_AlertMessage_UTF16(WindowHandle owner, i16 kind, u16 stringId, const char16* text,
                          u32 version) {
    return Serve(HostCall::kAlertMessage, version, i16{0}, [&](Application& app) -> i16 {
        if (stringId == 0 && text == nullptr) {
            return RefuseByRule(app, i16{0});
        }
        app.alerts.push_back(
            {owner, kind, stringId, stringId == 0 ? std::u16string{text} : std::u16string{}});
        if (app.alertListener) {
            const Alert alert = app.alerts.back();  // the listener may log further ones
            app.alertListener(alert);
        }
        return 1;
    });
}
