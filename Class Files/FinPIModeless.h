// A command with a modeless dialog: the user runs it as often as wanted until the dialog
// closes. The live objects form a list whose head is module state, the newest first.
#pragma once

#include "Class Files/FinPI.h"

class FinPIModeless : public FinPI {
public:
    FinPIModeless(WindowHandle owner, u16 item, u16 commandID);
    ~FinPIModeless() override;

    i16 Start(const EREGION* selection, const EREGION* wholeDocument) override;

    // The order of the virtual operations is the interface; those without a caller keep it.
    // Sets the keyboard focus to the dialog; nonzero on success.
    virtual i16 BringToFront();
    virtual i16 CanSkipDialog() const { return 0; }
    virtual i16 UnusedModelessHook() { return 1; }
    virtual i16 ProcessAllDocuments() const = 0;
    virtual i16 UnusedModelessQuery1() { return 0; }
    virtual i16 UnusedModelessQuery2() { return 0; }
    virtual i16 UnusedModelessQuery3() { return 0; }
    virtual i16 NeedsLayoutUpdate() const { return 0; }

    FinPIModeless* NextLive() const noexcept { return m_nextLive; }
    bool IsRunning() const noexcept { return m_running != 0; }

protected:
    // One run over the current selection, as one undoable edit of the host. Reports the error
    // that is pending afterwards; the edit is rolled back when there is one, or when the user
    // stopped. Saves the settings.
    void RunModeless();

private:
    // Executes within an edit. False: the edit was rolled back.
    bool ExecuteAsEdit(const EREGION* selection, const EREGION& wholeDocument);

    FinPIModeless* m_nextLive;
    u16 m_running = 0;
};
