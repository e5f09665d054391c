// A command with a modeless dialog: the user runs it as often as wanted until the dialog
// closes. The live objects form a list whose head is module state, the newest first.
#pragma once

#include <set>

#include "Class Files/FinPI.h"
#include "Class Files/interface/FinPIDialog.h"
#include "Class Files/score/region/FinPIRegion.h"

class FinPIModeless : public FinPI, public FinPIDialog {
public:
    // commandID also numbers the dialog. name: under which the dialog's place is stored.
    FinPIModeless(WindowHandle owner, u16 item, u16 commandID, const char16* name);
    ~FinPIModeless() override;

    i16 Start(const EREGION* selection, const EREGION* wholeDocument) override;
    void ForgetWindowPlace(u16 identifier) override;
    // 0: the dialog did not open.
    i16 ShowDialog(const EREGION* selection, const EREGION* wholeDocument) override;

    // Not allowed during a run, because the object must outlive it.
    i16 CloseDialog(WindowHandle window) override;
    // Without a stored place the dialog appears beside the one that was opened before it.
    i16 LoadWindowPosition(u16 keyOffset) override;
    u16 GetPositionKeyOffset(WindowHandle window, u64 eventWord, i64 eventLong) override;
    // Saves place and settings, and destroys this object at the end of the event in hand.
    i16 OnDestroyWindow(WindowHandle window, u64 eventWord, i64 eventLong) override;
    void OnTimer(WindowHandle window) override;
    i16 OnOtherMessage(WindowHandle window, u32 message, u64 eventWord, i64 eventLong) override;

    // The order of the virtual operations is the interface; those without a caller keep it.
    // Sets the keyboard focus to the dialog; nonzero on success.
    virtual i16 BringToFront();
    // The next five are called from timer ticks. The selection is another one.
    virtual void UpdateSelectionText(WindowHandle /*window*/) {}
    virtual void OnDocumentListChanged(WindowHandle /*window*/) {}
    // At each tick while another document is current than at the beginning.
    virtual void OnCurrentDocumentChanged(WindowHandle /*window*/) {}
    virtual void OnMenuEvent(WindowHandle /*window*/, u32 /*event*/) {}
    virtual void OnListedMenuEvent(WindowHandle /*window*/) {}
    virtual i16 CanSkipDialog() const { return 0; }
    virtual i16 UnusedModelessHook() { return 1; }
    virtual i16 ProcessAllDocuments() const = 0;
    virtual i16 UnusedModelessQuery1() { return 0; }
    virtual i16 UnusedModelessQuery2() { return 0; }
    virtual i16 UnusedModelessQuery3() { return 0; }
    virtual i16 NeedsLayoutUpdate() const { return 0; }

    FinPIModeless* NextLive() const noexcept { return m_nextLive; }
    // Until its errors are reported, its edit has ended and its settings are saved.
    bool IsRunning() const noexcept { return m_running != 0; }

protected:
    // One run over the current selection, as one undoable edit of the host. Reports the error
    // that is pending afterwards; the edit is rolled back when there is one, or when the user
    // stopped. Saves the settings. Does nothing while any command is running.
    void RunModeless();

private:
    // Executes within an edit. True: something changed, and was kept.
    bool ExecuteAsEdit(const EREGION* selection, const EREGION& wholeDocument);
    void WatchMenuEvents(WindowHandle window);
    void WatchDocuments(WindowHandle window);
    void WatchSelection(WindowHandle window);

    FinPIModeless* m_nextLive;
    FinPIRegion m_lastSelection;  // empty when nothing was selected
    std::set<u16> m_lastDocuments;
    u16 m_firstDocument;  // current when the object was made
    u16 m_running = 0;
    u32 m_pendingMenuEvent = 0;
};
