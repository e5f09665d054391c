// Makes a document the host's current one until the scope ends.
#pragma once

#include "shell/host/host_types.h"

// Restores the document that was current before. When the document is current already, the
// one question which document that is remains the only host call. Whether the host switched is
// asked of it, and not taken from its answer to the order.
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
