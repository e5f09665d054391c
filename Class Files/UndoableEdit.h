// One undoable edit of the host: rolled back unless it is kept.
#pragma once

#include "shell/host/callbacks.h"

class UndoableEdit {
public:
    // undoText is what the host's undo command shows.
    explicit UndoableEdit(const char16* undoText) : m_open{Host::StartFinaleEdit(undoText) != 0} {}
    ~UndoableEdit() {
        if (m_open) {
            Host::CancelFinaleEdit();
        }
    }
    UndoableEdit(const UndoableEdit&) = delete;
    UndoableEdit& operator=(const UndoableEdit&) = delete;

    // False: the host opened no edit, and what changes now could not be undone.
    explicit operator bool() const noexcept { return m_open; }

    // Ends the edit with its changes. False: the host refused, and they will be rolled back.
    bool Keep() {
        if (Host::EndFinaleEdit() == 0) {
            return false;
        }
        m_open = false;
        return true;
    }

private:
    bool m_open;
};
