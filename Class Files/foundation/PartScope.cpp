#include "Class Files/foundation/PartScope.h"

#include "shell/host/callbacks.h"

PartScope::PartScope(i16 part)
    : m_previous{Host::GetCurrentPartID()},
      m_isCurrent{m_previous == part || (m_previous < kScore && part == kScore)} {
    if (!m_isCurrent) {
        Host::SetCurrentPartID(part);
        m_isCurrent = Host::GetCurrentPartID() == part;
    }
}

PartScope::~PartScope() {
    if (Host::GetCurrentPartID() != m_previous) {
        Host::SetCurrentPartID(m_previous);
    }
}
