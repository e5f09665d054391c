// A question or a warning with a "do not show again" box; the answer is then remembered.
#pragma once

#include "Class Files/interface/FinPICheckBox.h"
#include "Class Files/interface/FinPIDialog.h"

enum class AlertType : u16 { kOk = 0, kOkCancel = 1, kYesNo = 4 };

namespace AlertAnswer {
inline constexpr u16 kNone = 0;
inline constexpr u16 kOk = 1;
inline constexpr u16 kCancel = 2;
inline constexpr u16 kYes = 6;
inline constexpr u16 kNo = 7;
}  // namespace AlertAnswer

class FinPIAlert : public FinPIDialog {
public:
    // The owner of the stored answers, and of the alert's window position.
    static constexpr char kStoredUnder[] = "Dont Show Again Alert";
    static constexpr char16 kPositionKey[] = u"Dont Show Again Alert";
    static constexpr char kSettingName[] = "CKAT";
    // Asked before saved settings change, which the host's menu will not show yet.
    static constexpr u16 kStaleMenuQuestion = 20003;

    // messageId: of the string table. Reads what was remembered for this message.
    FinPIAlert(FinPI* owner, u32 messageId, AlertType type, const char16* positionKey);
    // Writes what is to be remembered.
    ~FinPIAlert() override;

    bool IsSilenced() const noexcept { return m_record.dontShow != 0; }
    u16 RememberedAnswer() const noexcept { return m_record.answer; }
    u16 Answer() const noexcept { return m_answer; }
    // The message as the string table has it, UTF-8.
    const char* Message() const noexcept { return m_message; }
    // Cut at 1023 bytes, between characters.
    void SetMessage(const char* utf8);

    i16 OnInitializeWindow(WindowHandle window) override;
    void PrepareControls(WindowHandle window) override;
    i16 HandleCommand(WindowHandle window, u16 control, u8* final) override;
    void CopyDialogToConfigData(WindowHandle window) override;

private:
    // As stored; a stored record may hold the first field alone.
    struct Record {
        u16 dontShow;
        u16 answer;
    };
    static_assert(sizeof(Record) == 4);

    u16 DefaultAnswer() const noexcept;

    Record m_record{};
    u32 m_messageId;
    AlertType m_type;
    u16 m_answer = AlertAnswer::kNone;  // kNone: not answered yet
    char m_message[1024]{};
    FinPICheckBox m_dontShowBox;
};

// Asks with a message of the string table, a printf format for the arguments, texts in UTF-8.
// Gives the answer: the remembered one, without showing anything, when the user asked for that.
u16 ShowAlert(FinPI* owner, WindowHandle ownerWindow, AlertType type, u32 messageId, ...);
