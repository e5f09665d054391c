// An undoable edit of the host, rolled back unless it is kept.
#pragma once

#include "Class Files/foundation/DocumentScope.h"
#include "shell/host/callbacks.h"

// Belongs to the document that is current at its start, and ends there, whichever document is
// current then. The host's results for starting and ending it have no meaning, so they are ignored.
// An edit that was ended is never canceled.
class UndoableEdit {
public:
    // undoText is what the host's undo command shows.
    explicit UndoableEdit(const char16* undoText) : m_document{Host::GetCurrentEnigmaDocument()} {
        Host::StartFinaleEdit(undoText);
    }
    ~UndoableEdit() {
        if (!m_kept) {
            const DocumentScope document{m_document};
            Host::CancelFinaleEdit();
        }
    }
    UndoableEdit(const UndoableEdit&) = delete;
    UndoableEdit& operator=(const UndoableEdit&) = delete;

    // Ends the edit with its changes.
    void Keep() {
        const DocumentScope document{m_document};
        Host::EndFinaleEdit();
        m_kept = true;
    }

private:
    u16 m_document;
    bool m_kept = false;
};
