#include "Class Files/foundation/DocumentScope.h"

#include "shell/host/callbacks.h"

DocumentScope::DocumentScope(u16 document)
    : m_previous{Host::GetCurrentEnigmaDocument()}, m_isCurrent{m_previous == document} {
    if (!m_isCurrent) {
        Host::SetCurrentEnigmaDocument(document);
        const u16 current = Host::GetCurrentEnigmaDocument();
        m_isCurrent = current == document;
        m_switched = current != m_previous;
    }
}

DocumentScope::~DocumentScope() {
    if (m_switched) {
        Host::SetCurrentEnigmaDocument(m_previous);
    }
}
