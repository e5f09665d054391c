// Makes a document the host's current one until the scope ends.
#pragma once

#include "shell/host/host_types.h"

// Restores the document that was current before. If the document is already current, the only host
// call is the one that asks for it. Whether the host switched is checked, not concluded from the
// result of the call.
class DocumentScope {
public:
    explicit DocumentScope(u16 document);
    ~DocumentScope();
    DocumentScope(const DocumentScope&) = delete;
    DocumentScope& operator=(const DocumentScope&) = delete;

    // False: the host refused, and the previous document is still current.
    explicit operator bool() const noexcept { return m_isCurrent; }

private:
    u16 m_previous;
    bool m_switched = false;
    bool m_isCurrent;
};
