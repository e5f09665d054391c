#include "Class Files/score/details/FinPINullEntryDetail.h"

i16 FinPINullEntryDetailBase::Load() {
    m_loaded = static_cast<i16>(m_recordNumber == 0 && HasDetails() != 0);
    return m_loaded;
}

i16 FinPINullEntryDetailBase::Delete() {
    if (!m_entry) {
        return 0;
    }
    m_entry->flags &= ~m_entryFlags;
    m_loaded = 0;
    return 1;
}

i16 FinPINullEntryDetailBase::HasDetails() const {
    return m_entry.HasFlag(m_upFlags & m_downFlags);
}

i16 FinPINullEntryDetailBase::Save() {
    return Create();
}

i16 FinPINullEntryDetailBase::Create() {
    if (!m_entry) {
        return 0;
    }
    const bool dependsOnStem = m_upFlags != m_downFlags;
    const u32 flags = dependsOnStem && StemDirection() < 0 ? m_downFlags : m_upFlags;
    m_entry->flags = (m_entry->flags & ~m_entryFlags) | flags;
    return 1;
}
