#include "Class Files/interface/FinPIGenericControl.h"

#include <string>

#include "Class Files/foundation/FinPIUniStringUtil.h"
#include "Class Files/foundation/FinPIVarStringUtf16.h"
#include "shell/host/callbacks.h"

namespace {

// The kind passed to the host for a control's value in the user's units.
constexpr i16 kUserUnits = 1;

}  // namespace

void FinPIGenericControl::Attach(WindowHandle window, u32 value, u16 enabled) {
    m_window = window;
    if (m_id != 0) {
        SetValue(value);
        Enable(enabled);
    }
}

void FinPIGenericControl::AttachText(WindowHandle window, const char16* text, u16 enabled) {
    m_window = window;
    if (m_id != 0) {
        SetText(text);
        Enable(enabled);
    }
}

void FinPIGenericControl::SetFocus() {
    Host::SetDlgFocus(m_window, m_id);
}

u32 FinPIGenericControl::GetValue() {
    return ReadControl();
}

char16* FinPIGenericControl::GetText(char16* buffer, u32 capacity) {
    *buffer = u'\0';
    Host::GetDlgString(m_window, m_id, buffer, capacity);
    buffer[capacity - 1] = u'\0';  // whatever the host wrote
    return buffer;
}

char* FinPIGenericControl::GetTextUtf8(char* buffer, u32 capacity) {
    std::u16string text(capacity, u'\0');
    return FinPIUniStringUtil::UniChar_Utf8encode(buffer, GetText(text.data(), capacity), capacity);
}

double FinPIGenericControl::GetUserValue() {
    double value = 0;
    Host::GetDlgItemUser(m_window, m_id, kUserUnits, &value);
    return value;
}

i16 FinPIGenericControl::Enable(u16 enabled) {
    const i16 result = Host::EnableDlgItem(m_window, m_id, static_cast<i16>(enabled));
    m_enabled = enabled;
    return result;
}

void FinPIGenericControl::SetValue(u32 value) {
    WriteControl(value);
}

void FinPIGenericControl::SetTextUtf8(const char* text) {
    const FinPIVarStringUtf16 utf16{text};
    SetText(utf16.Text());
}

void FinPIGenericControl::SetText(const char16* text) {
    Host::SetDlgString(m_window, m_id, text);
}

void FinPIGenericControl::SetUserValue(double value) {
    Host::SetDlgItemUser(m_window, m_id, kUserUnits, value);
}

u32 FinPIGenericControl::ReadControl() {
    return Host::GetDlgCntlVal(m_window, m_id, static_cast<i16>(0), static_cast<i16>(0));
}

void FinPIGenericControl::WriteControl(u32 value) {
    Host::SetDlgCntlVal(m_window, m_id, static_cast<i16>(0), value);
}
