// A dialog of the plug-in, run by the host's dialog service from a template of the plug-in's
// resources.
//
// The host creates the window and sends every event of it to DialogEventCallback with the
// dialog object; the callback turns events into calls of the virtual operations. In order:
// ShowDialogWindow, then at the window's creation PrepareControls, OnInitializeWindow,
// OnDialogReady and AfterInitializeWindow; HandleCommand for each control event and OnTimer for
// each timer tick; CloseDialog; OnDestroyWindow. Everything runs on the user-interface thread.
#pragma once

#include <string>
#include <string_view>

#include "shell/host/host_types.h"

class FinPI;

// A device context of the windowing system: HDC on Windows.
struct HDC__;
using DeviceContext = HDC__*;

class FinPIDialog {
public:
    // positionKey names the owner under which the window's place is stored. title null: the
    // template's caption stays. version null: no version is shown. None of the texts is kept.
    FinPIDialog(FinPI* owner, u16 dialogNumber, const char16* positionKey, const char16* title,
                const char16* version);
    FinPIDialog(const FinPIDialog&) = delete;
    FinPIDialog& operator=(const FinPIDialog&) = delete;

    // The order of the virtual operations is the interface; those named Unused keep its places.
    // eventWord and eventLong are the event's own two parameters.
    virtual ~FinPIDialog();
    virtual i16 CloseDialog(WindowHandle window);  // the result of FX_EndDialog
    // Takes left and top from the store: 1 = found; 0 = they stay as they are.
    virtual i16 LoadWindowPosition(u16 keyOffset);
    // Distinguishes several stored places of one dialog; 0 = it stores one.
    virtual u16 GetPositionKeyOffset(WindowHandle window, u64 eventWord, i64 eventLong);
    virtual i16 OnControlColor(WindowHandle window, u16 control, DeviceContext context, u16 kind);
    virtual u16 GetExtraShowFlags(WindowHandle ownerWindow, u16 flags);
    virtual i16 OnInitializeWindow(WindowHandle window);  // 0: the dialog ignores its controls
    virtual void PrepareControls(WindowHandle window);
    virtual void AfterInitializeWindow(WindowHandle window);
    virtual i16 OnActivate(WindowHandle window, u64 eventWord, i64 eventLong);
    // A handler that ends the dialog sets final to 1.
    virtual i16 HandleCommand(WindowHandle window, u16 control, u8* final) = 0;
    virtual i16 OnDestroyWindow(WindowHandle window, u64 eventWord, i64 eventLong);
    virtual void OnTimer(WindowHandle window);
    virtual void OnPreferencesChanged(WindowHandle window);
    virtual i16 OnPaint(WindowHandle window, u64 eventWord, i64 eventLong);
    virtual i16 OnCharacter(WindowHandle window, u64 eventWord, i64 eventLong);
    virtual i16 OnOtherMessage(WindowHandle window, u32 message, u64 eventWord, i64 eventLong);
    virtual i16 OnMinimize(WindowHandle window, u64 command, i64 eventLong);
    virtual i16 OnMaximize(WindowHandle window, u64 command, i64 eventLong);
    virtual i16 OnRestore(WindowHandle window, u64 command, i64 eventLong);
    virtual i16 OnDialogReady();
    // Every dialog whose values become settings replaces it: the base posts an error.
    virtual void CopyDialogToConfigData(WindowHandle window);
    virtual i16 UnusedQuery() { return 0; }
    virtual void UnusedNotice() {}
    virtual i16 UnusedAnswer() { return 1; }
    virtual i16 UnusedResult() { return 0; }
    // Half away from zero; rests on FX_GetDlgItemUser.
    virtual i32 GetUserValueRounded(WindowHandle window, u16 control);

    // Null: back to the template's caption. Cut at 255 characters, the version included.
    void SetTitle(const char16* title);
    // Bit 0 of the flags: modal, returns when the dialog has ended. Rests on FX_Dialog.
    i16 ShowDialogWindow(WindowHandle ownerWindow, u16 flags);
    // A tick every 100 milliseconds until StopTimer.
    void StartTimer(WindowHandle window);
    void StopTimer(WindowHandle window);
    // Lets the user save the owner's settings under a name. window: this dialog's window.
    void RunSaveSettingsDialog(WindowHandle window);

    WindowHandle Window() const noexcept { return m_window; }
    const char16* PositionKey() const noexcept { return m_positionKey; }
    bool WasAccepted() const noexcept { return m_accepted != 0; }
    // The remembered place of the window, screen pixels.
    i16 Left() const noexcept { return m_left; }
    i16 Top() const noexcept { return m_top; }
    void SetPlace(i16 left, i16 top) noexcept;

    // What FX_Dialog is given; no exception leaves it.
    static i16 DialogEventCallback(WindowHandle window, u32 message, u64 eventWord, i64 eventLong,
                                   void* dialogObject) noexcept;

protected:
    // Left and top while no place is known.
    static constexpr i16 kUnknownPlace = -32768;

    // Deletes the stored place that belongs to a key offset.
    void ForgetStoredPosition(u16 keyOffset) const;
    // For an object that owns itself, while it handles an event: it gets no further events and is
    // deleted once none is being handled.
    void DeleteWhenIdle() noexcept { m_ended = true; }
    // Takes left and top from the window; false if the system does not give them.
    bool RememberWindowPlace(WindowHandle window);

    FinPI* m_owner;
    u16 m_dialogNumber;
    u16 m_titleGiven = 0;
    char16 m_title[256]{};
    u64 m_lastControl{};       // of the command event being handled
    u64 m_notificationCode{};  // as above
    u16 m_showFlags{};
    u16 m_initialized = 0;
    u16 m_repositionPending = 0;
    u16 m_accepted = 0;  // a derived dialog's user confirmed it
    u16 m_minimized = 0;
    WindowHandle m_window = nullptr;  // null before the window's creation
    u64 m_timer = 0;                  // 0 = none runs
    char16 m_positionKey[256]{};
    u16 m_watchedPreference{};
    u16 m_inCommand = 0;
    u16 m_hasVersion = 0;
    char16 m_versionSuffix[64]{};
    i16 m_left;  // both kUnknownPlace = unknown
    i16 m_top;

private:
    int m_eventsInHand = 0;     // one within another
    int m_commandsInHand = 0;   // likewise
    int m_ticksPassedOver = 0;  // since the last command
    bool m_ended = false;

    // False also for an object that was deleted, because a host may still send events of its
    // window.
    static bool Exists(const void* dialogObject);
    i16 HandleEvent(WindowHandle window, u32 message, u64 eventWord, i64 eventLong);
    i16 HandleCreation(WindowHandle window, u64 eventWord, i64 eventLong);
    i16 HandleControlEvent(WindowHandle window, u64 notificationCode, u64 control);
    i16 HandleNotification(WindowHandle window, i64 eventLong);
    bool PassesOverTick();
    i16 HandleTimer(WindowHandle window);
    i16 HandleMove(WindowHandle window, u64 eventWord, i64 eventLong);
    i16 HandleSystemCommand(WindowHandle window, u64 command, i64 eventLong);
    void PutWindowText(WindowHandle window) const;
    void PlaceWindow(WindowHandle window, u64 eventWord, i64 eventLong);
    void SaveWindowPosition(WindowHandle window, u64 eventWord, i64 eventLong);
    i16 PositionNumber(u16 keyOffset) const noexcept;
    std::string PositionOwner() const;
};
