#include "Class Files/interface/FinPIDialog.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "Class Files/foundation/FinPIException.h"
#include "Class Files/interface/WatchedPreference.h"
#include "platform/window.h"
#include "shell/host/callbacks.h"

namespace {

constexpr u64 kTimerId = 1;
constexpr u32 kTimerPeriod = 100;  // milliseconds

// Cuts the text to the field and terminates it.
template <std::size_t kUnits>
void CopyCut(char16 (&field)[kUnits], std::u16string_view text) {
    const std::u16string_view cut = text.substr(0, kUnits - 1);
    *std::ranges::copy(cut, field).out = u'\0';
}

std::set<const void*>& ExistingDialogs() {
    static std::set<const void*> dialogs;
    return dialogs;
}

}  // namespace

FinPIDialog::FinPIDialog(FinPI* owner, u16 dialogNumber, const char16* positionKey,
                         const char16* title, const char16* version)
    : m_owner{owner}, m_dialogNumber{dialogNumber}, m_left{kUnknownPlace}, m_top{kUnknownPlace} {
    CopyCut(m_positionKey, positionKey);
    if (version != nullptr) {
        m_hasVersion = 1;
        CopyCut(m_versionSuffix, std::u16string{u" v"} + version);
    }
    if (title != nullptr) {
        SetTitle(title);
    }
    ExistingDialogs().insert(this);
}

FinPIDialog::~FinPIDialog() {
    ExistingDialogs().erase(this);
}

bool FinPIDialog::Exists(const void* dialogObject) {
    return ExistingDialogs().contains(dialogObject);
}

void FinPIDialog::SetTitle(const char16* title) {
    m_titleGiven = title != nullptr ? 1 : 0;
    CopyCut(m_title, title != nullptr ? title + std::u16string{m_versionSuffix} : u"");
}

i16 FinPIDialog::ShowDialogWindow(WindowHandle ownerWindow, u16 flags) {
    m_showFlags = static_cast<u16>(flags | GetExtraShowFlags(ownerWindow, flags));
    m_watchedPreference = WatchedPreference();
    return Host::Dialog(m_dialogNumber, &FinPIDialog::DialogEventCallback, ownerWindow, m_showFlags,
                        static_cast<void*>(this));
}

void FinPIDialog::StartTimer(WindowHandle window) {
    Host::SetTimer(window, kTimerId, kTimerPeriod);
    m_timer = kTimerId;
}

void FinPIDialog::StopTimer(WindowHandle window) {
    if (m_timer != 0) {
        Host::KillTimer(window, m_timer);
        m_timer = 0;
    }
}

void FinPIDialog::PutWindowText(WindowHandle window) const {
    if (m_titleGiven != 0) {
        platform::SetWindowCaption(window, m_title);
    } else if (m_hasVersion != 0) {
        platform::SetWindowCaption(window, platform::WindowCaption(window) + m_versionSuffix);
    }
}

i16 FinPIDialog::CloseDialog(WindowHandle window) {
    return Host::EndDialog(window);
}

u16 FinPIDialog::GetPositionKeyOffset(WindowHandle, u64, i64) {
    return 0;
}

i16 FinPIDialog::OnControlColor(WindowHandle, u16, DeviceContext, u16) {
    return 0;
}

u16 FinPIDialog::GetExtraShowFlags(WindowHandle, u16) {
    return 0;
}

i16 FinPIDialog::OnInitializeWindow(WindowHandle) {
    return 1;
}

void FinPIDialog::PrepareControls(WindowHandle) {}

void FinPIDialog::AfterInitializeWindow(WindowHandle) {}

i16 FinPIDialog::OnActivate(WindowHandle, u64, i64) {
    return 0;
}

i16 FinPIDialog::OnDestroyWindow(WindowHandle window, u64 eventWord, i64 eventLong) {
    if (window != nullptr && m_minimized == 0) {
        SaveWindowPosition(window, eventWord, eventLong);
    }
    StopTimer(window);
    return 1;
}

void FinPIDialog::OnTimer(WindowHandle) {}

void FinPIDialog::OnPreferencesChanged(WindowHandle) {}

i16 FinPIDialog::OnPaint(WindowHandle, u64, i64) {
    return 0;
}

i16 FinPIDialog::OnCharacter(WindowHandle, u64, i64) {
    return 0;
}

i16 FinPIDialog::OnOtherMessage(WindowHandle, u32, u64, i64) {
    return 0;
}

i16 FinPIDialog::OnMinimize(WindowHandle, u64, i64) {
    m_minimized = 1;
    return 0;
}

i16 FinPIDialog::OnMaximize(WindowHandle, u64, i64) {
    m_minimized = 0;
    return 0;
}

i16 FinPIDialog::OnRestore(WindowHandle, u64, i64) {
    m_minimized = 0;
    return 0;
}

i16 FinPIDialog::OnDialogReady() {
    return 2;
}

void FinPIDialog::CopyDialogToConfigData(WindowHandle) {
    PostError(FinPIAppError("FinPIDialog::CopyDialogToConfigData",
                            "Base version of function was called, which does nothing."));
    ReportPendingError();
}

i32 FinPIDialog::GetUserValueRounded(WindowHandle window, u16 control) {
    double value = 0;
    Host::GetDlgItemUser(window, control, static_cast<i16>(0), &value);
    return static_cast<i32>(std::lround(value));
}
