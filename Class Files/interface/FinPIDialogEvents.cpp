// How the events of a dialog's window become calls of its virtual operations.
#include <bit>

#include "Class Files/foundation/FinPITrace.h"
#include "Class Files/interface/FinPIDialog.h"
#include "Class Files/interface/WatchedPreference.h"
#include "Class Files/interface/WindowMessages.h"
#include "platform/guarded.h"
#include "platform/window.h"

namespace {

constexpr char kTracedFile[] = "Class Files\\FinPIDialog";
constexpr u16 kModal = 1;  // of the show flags

// The kind of control as OnControlColor expects it.
u16 ControlKind(u32 message) noexcept {
    switch (message) {
        case WindowMessage::kControlColorEdit:
            return 1;
        case WindowMessage::kControlColorButton:
            return 3;
        default:  // a static text
            return 6;
    }
}

unsigned Traced(const void* pointer) noexcept {
    return static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(pointer));
}

}  // namespace

i16 FinPIDialog::DialogEventCallback(WindowHandle window, u32 message, u64 eventWord, i64 eventLong,
                                     void* dialogObject) noexcept {
    if (!Exists(dialogObject)) {
        return 0;
    }
    auto* dialog = static_cast<FinPIDialog*>(dialogObject);
    if (dialog->m_ended) {
        return 0;
    }
    if (dialog->m_window != nullptr && dialog->m_window != window) {
        FinPITrace(kTracedFile, __LINE__,
                   message == WindowMessage::kCommand
                       ? "WM_COMMAND called for different dlg, input hDlg=0x%x, m_hMe=0x%x, "
                         "dlgData=0x%x"
                       : "Callback called for different dlg, input hDlg=0x%x, m_hMe=0x%x, "
                         "dlgData=0x%x",
                   Traced(window), Traced(dialog->m_window), Traced(dialogObject));
        return 0;
    }
    ++dialog->m_eventsInHand;
    const i16 result = platform::Guarded(
        i16{0}, [&] { return dialog->HandleEvent(window, message, eventWord, eventLong); });
    if (--dialog->m_eventsInHand == 0 && dialog->m_ended) {
        delete dialog;
    }
    return result;
}

i16 FinPIDialog::HandleEvent(WindowHandle window, u32 message, u64 eventWord, i64 eventLong) {
    switch (message) {
        case WindowMessage::kInitDialog:
            return HandleCreation(window, eventWord, eventLong);
        case WindowMessage::kCommand:
            return HandleControlEvent(window, (eventWord >> 16U) & 0xFFFFU, eventWord & 0xFFFFU);
        case WindowMessage::kNotify:
            return HandleNotification(window, eventLong);
        case WindowMessage::kTimer:
            return HandleTimer(window);
        case WindowMessage::kClose:
            CloseDialog(window);
            return 0;
        case WindowMessage::kSystemCommand:
            return HandleSystemCommand(window, eventWord & SystemCommand::kMask, eventLong);
        case WindowMessage::kDestroy:
            return OnDestroyWindow(window, eventWord, eventLong);
        case WindowMessage::kActivate:
            return OnActivate(window, eventWord, eventLong);
        case WindowMessage::kPaint:
            return OnPaint(window, eventWord, eventLong);
        case WindowMessage::kCharacter:
            return OnCharacter(window, eventWord, eventLong);
        case WindowMessage::kSetCursor:
            return 0;
        case WindowMessage::kPositionChanged:
            return HandleMove(window, eventWord, eventLong);
        case WindowMessage::kControlColorEdit:
        case WindowMessage::kControlColorButton:
        case WindowMessage::kControlColorStatic:
            return OnControlColor(window,
                                  platform::ControlId(std::bit_cast<WindowHandle>(eventLong)),
                                  std::bit_cast<DeviceContext>(eventWord), ControlKind(message));
        default:
            return OnOtherMessage(window, message, eventWord, eventLong);
    }
}

i16 FinPIDialog::HandleCreation(WindowHandle window, u64 eventWord, i64 eventLong) {
    m_window = window;
    PlaceWindow(window, eventWord, eventLong);
    PutWindowText(window);
    PrepareControls(window);
    const i16 result = OnInitializeWindow(window);
    OnDialogReady();
    AfterInitializeWindow(window);
    if (result != 0) {
        m_initialized = 1;
        m_repositionPending = 1;
    }
    return result;
}

i16 FinPIDialog::HandleControlEvent(WindowHandle window, u64 notificationCode, u64 control) {
    if (m_initialized == 0) {
        return 0;
    }
    m_notificationCode = notificationCode;
    m_lastControl = control;
    // A command event may arrive while another one is being handled. Ticks that arrive while an
    // ended dialog goes away are passed over.
    struct InHand {
        explicit InHand(FinPIDialog& handling) noexcept : dialog{handling} {
            ++dialog.m_commandsInHand;
            dialog.m_inCommand = 1;
            dialog.m_ticksPassedOver = 0;
        }
        ~InHand() {
            --dialog.m_commandsInHand;
            if (final == 0) {
                dialog.m_inCommand = static_cast<u16>(dialog.m_commandsInHand > 0);
            }
        }
        FinPIDialog& dialog;
        u8 final = 0;
    } inHand{*this};
    return HandleCommand(window, static_cast<u16>(control), &inHand.final);
}

i16 FinPIDialog::HandleNotification(WindowHandle window, i64 eventLong) {
    const auto* header = std::bit_cast<const NotificationHeader*>(eventLong);
    if (header == nullptr || header->code != kTabSelectionChanged) {
        return 0;
    }
    return HandleControlEvent(window, kTabSelectionNotification, header->senderId);
}

// A dialog that goes on getting ticks after its last command did not go away.
bool FinPIDialog::PassesOverTick() {
    constexpr int kTicksOfGoingAway = 5;
    if (m_inCommand != 0 && m_commandsInHand == 0 && ++m_ticksPassedOver > kTicksOfGoingAway) {
        m_inCommand = 0;
    }
    return m_inCommand != 0;
}

i16 FinPIDialog::HandleTimer(WindowHandle window) {
    if (PassesOverTick()) {
        return 1;
    }
    if ((m_showFlags & kModal) == 0) {
        const u16 preference = WatchedPreference();
        if (preference != m_watchedPreference) {
            m_watchedPreference = preference;
            OnPreferencesChanged(window);
        }
    }
    OnTimer(window);
    return 1;
}

i16 FinPIDialog::HandleMove(WindowHandle window, u64 eventWord, i64 eventLong) {
    if (m_repositionPending != 0) {
        // The host may move the window once more after its creation.
        m_repositionPending = 0;
        PlaceWindow(window, eventWord, eventLong);
    }
    return 0;
}

i16 FinPIDialog::HandleSystemCommand(WindowHandle window, u64 command, i64 eventLong) {
    switch (command) {
        case SystemCommand::kMinimize:
            return OnMinimize(window, command, eventLong);
        case SystemCommand::kMaximize:
            return OnMaximize(window, command, eventLong);
        case SystemCommand::kRestore:
            return OnRestore(window, command, eventLong);
        case SystemCommand::kClose:
            CloseDialog(window);
            return 0;
        default:
            return 0;
    }
}
