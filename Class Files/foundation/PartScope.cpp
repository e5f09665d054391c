#include "Class Files/foundation/PartScope.h"

#include "shell/host/callbacks.h"

PartScope::PartScope(i16 part) : m_previous{Host::GetCurrentPartID()} {
    if (m_previous != part) {
        Host::SetCurrentPartID(part);
    }
}

PartScope::~PartScope() {
    if (Host::GetCurrentPartID() != m_previous) {
        Host::SetCurrentPartID(m_previous);
    }
}
