#include "Class Files/interface/FinPIAlert.h"

#include <algorithm>
#include <cstdarg>
#include <string_view>

#include "Class Files/foundation/FinPIException.h"
#include "Class Files/foundation/FinPIUniStringUtil.h"
#include "Class Files/foundation/FinPIUtil.h"
#include "Class Files/foundation/FinPIVarString.h"
#include "Class Files/interface/DialogLayout.h"
#include "platform/resources.h"
#include "platform/text.h"
#include "shell/host/callbacks.h"

namespace {

constexpr u16 kAlertDialog = 20001;
constexpr i32 kYesString = 20001;
constexpr i32 kNoString = 20002;

// The dialog's controls.
constexpr u16 kFirstButton = 1;   // OK or Yes
constexpr u16 kSecondButton = 2;  // Cancel or No
constexpr u16 kMessageText = 3;
constexpr u16 kDontShowBox = 4;

}  // namespace

FinPIAlert::FinPIAlert(FinPI* owner, u32 messageId, AlertType type, const char16* positionKey)
    : FinPIDialog{owner, kAlertDialog, positionKey, u"Finale", nullptr},
      m_messageId{messageId},
      m_type{type},
      m_dontShowBox{kDontShowBox} {
    char16 text[1024];
    platform::LoadResourceString(messageId, text, static_cast<u32>(std::size(text)));
    FinPIUniStringUtil::UniChar_Utf8encode(m_message, text, sizeof(m_message));
    const u32 found = ZKFX_GetSettings(kSettingName, static_cast<i16>(messageId), &m_record,
                                       sizeof(m_record), kStoredUnder);
    if (found <= sizeof(m_record.dontShow)) {
        m_record.answer = DefaultAnswer();
    }
}

FinPIAlert::~FinPIAlert() {
    ZKFX_PutSettings(kSettingName, static_cast<i16>(m_messageId), &m_record, sizeof(m_record),
                     kStoredUnder);
}

u16 FinPIAlert::DefaultAnswer() const noexcept {
    return m_type == AlertType::kYesNo ? AlertAnswer::kYes : AlertAnswer::kOk;
}

void FinPIAlert::SetMessage(const char* utf8) {
    const std::string_view cut = platform::CutUtf8(utf8, sizeof(m_message) - 1);
    *std::ranges::copy(cut, m_message).out = '\0';
}

void FinPIAlert::PrepareControls(WindowHandle window) {
    FitCheckBox(window, kDontShowBox);
    switch (m_type) {
        case AlertType::kOk:
            ShowHideControl(window, kSecondButton, -1, true);
            break;
        case AlertType::kOkCancel:
            break;
        case AlertType::kYesNo:
            ShowHideControl(window, kFirstButton, kYesString, false);
            ShowHideControl(window, kSecondButton, kNoString, false);
            break;
        default:
            PostError(FinPIAppError("FinPIAlert::OnInitializeWindow", "Invalid Alert Type."));
    }
}

i16 FinPIAlert::OnInitializeWindow(WindowHandle window) {
    m_dontShowBox.Attach(window, m_record.dontShow, 1);
    if (*m_message != '\0') {
        SetControlTextUtf8(window, kMessageText, m_message);
    }
    return 1;
}

void FinPIAlert::CopyDialogToConfigData(WindowHandle /*window*/) {
    m_record.dontShow = static_cast<u16>(m_dontShowBox.GetValue());
    m_record.answer = m_answer;
}

i16 FinPIAlert::HandleCommand(WindowHandle window, u16 control, u8* final) {
    const bool yesNo = m_type == AlertType::kYesNo;
    switch (control) {
        case kFirstButton:
            m_answer = DefaultAnswer();
            CopyDialogToConfigData(window);
            break;
        case kSecondButton:
            m_answer = yesNo ? AlertAnswer::kNo : AlertAnswer::kCancel;
            // A canceled alert changes nothing that is remembered.
            if (yesNo) {
                CopyDialogToConfigData(window);
            }
            break;
        case kDontShowBox:
            m_dontShowBox.Toggle();
            return 1;
        default:
            return 0;
    }
    *final = 1;
    CloseDialog(window);
    return 1;
}

u16 ShowAlert(FinPI* owner, WindowHandle ownerWindow, AlertType type, u32 messageId, ...) {
    FinPIAlert alert{owner, messageId, type, FinPIAlert::kPositionKey};
    if (alert.IsSilenced()) {
        return alert.RememberedAnswer();
    }
    va_list arguments;
    va_start(arguments, messageId);
    FinPIVarString message;
    message.SetFormatted(alert.Message(), arguments);
    va_end(arguments);
    alert.SetMessage(message.Text());
    constexpr u16 kModal = 1;
    alert.ShowDialogWindow(ownerWindow, kModal);
    return alert.Answer();
}
