// One undoable edit of the host: rolled back unless it is kept.
#pragma once

#include "Class Files/foundation/DocumentScope.h"
#include "shell/host/callbacks.h"

// Belongs to the document that is current at its start, and ends there, whatever is current.
class UndoableEdit {
public:
    // undoText is what the host's undo command shows.
    explicit UndoableEdit(const char16* undoText)
        : m_document{Host::GetCurrentEnigmaDocument()},
          m_open{Host::StartFinaleEdit(undoText) != 0} {}
    ~UndoableEdit() {
        if (m_open) {
            const DocumentScope document{m_document};
            Host::CancelFinaleEdit();
        }
    }
    UndoableEdit(const UndoableEdit&) = delete;
    UndoableEdit& operator=(const UndoableEdit&) = delete;

    // False: the host opened no edit, and what changes now could not be undone.
    explicit operator bool() const noexcept { return m_open; }

    // Ends the edit with its changes. False: the host refused, and they will be rolled back.
    bool Keep() {
        const DocumentScope document{m_document};
        if (Host::EndFinaleEdit() == 0) {
            return false;
        }
        m_open = false;
        return true;
    }

private:
    u16 m_document;
    bool m_open;
};
