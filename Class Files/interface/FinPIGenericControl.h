// One control of a dialog: holds its id and the dialog's window, and reads and writes it through
// the host's dialog operations.
//
// A control object is made with its id before the dialog runs, and attached to the dialog's window
// when that is initialized. A control the dialog does not have reads as 0 and as an empty text;
// writing to it does nothing.
#pragma once

#include "shell/host/host_types.h"

class FinPIGenericControl {
public:
    explicit FinPIGenericControl(u16 id) noexcept : m_id{id} {}  // 0: attaching writes nothing
    FinPIGenericControl(const FinPIGenericControl&) = delete;
    FinPIGenericControl& operator=(const FinPIGenericControl&) = delete;

    // The order of the virtual operations is the interface; those named Unused keep its places.
    virtual ~FinPIGenericControl() = default;
    virtual void Attach(WindowHandle window, u32 value, u16 enabled);
    virtual void AttachText(WindowHandle window, const char16* text, u16 enabled);
    virtual void SetFocus();
    virtual u32 GetValue();
    // capacity in UTF-16 units; returns the buffer.
    virtual char16* GetText(char16* buffer, u32 capacity);
    // capacity in bytes; returns the buffer.
    virtual char* GetTextUtf8(char* buffer, u32 capacity);
    virtual double GetUserValue();
    virtual u32 GetStoredValue() { return GetValue(); }
    virtual i16 Enable(u16 enabled);  // the host's result
    virtual void SetValue(u32 value);
    virtual void SetTextUtf8(const char* text);  // null: the empty text
    virtual void SetText(const char16* text);
    virtual void SetUserValue(double value);
    virtual i16 UnusedQuery() { return 0; }
    virtual void UnusedNotice() {}
    virtual u32 ReadControl();
    virtual void WriteControl(u32 value);

protected:
    u16 m_id;
    WindowHandle m_window = nullptr;  // the dialog's; null before the control is attached
    u16 m_enabled = 0;                // as last given to Enable
};
