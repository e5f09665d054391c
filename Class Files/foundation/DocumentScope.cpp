#include "Class Files/foundation/DocumentScope.h"

#include "shell/host/callbacks.h"

DocumentScope::DocumentScope(u16 document)
    : m_previous{Host::GetCurrentEnigmaDocument()}, m_isCurrent{m_previous == document} {
    if (!m_isCurrent) {
        m_switched = Host::SetCurrentEnigmaDocument(document) != 0;
        m_isCurrent = m_switched && Host::GetCurrentEnigmaDocument() == document;
    }
}

DocumentScope::~DocumentScope() {
    if (m_switched) {
        Host::SetCurrentEnigmaDocument(m_previous);
    }
}
