// The staff systems of a document.
#include <algorithm>

#include "host/score/document.h"
#include "host/score/records/tags.h"

namespace standin {

void Document::LayoutSystems(u16 measuresPerSystem) {
    m_measuresPerSystem = std::max<u16>(measuresPerSystem, 1);
    UpdateLayout();
}

void Document::UpdateLayout() {
    u16 system = 0;
    for (i32 first = 1; first <= m_measureCount; first += m_measuresPerSystem) {
        EDTStaffSystemSpec2005 record{};
        record.firstMeasure = static_cast<i16>(first);
        record.nextSystemFirstMeasure =
            static_cast<i16>(std::min<i32>(first + m_measuresPerSystem, m_measureCount + 1));
        const RecordKey key = RecordKey::Other(++system);
        if (!m_records.Save(Tag::kStaffSystem, key, BytesOf(record))) {
            m_records.Create(Tag::kStaffSystem, key, BytesOf(record));
        }
    }
    while (m_records.Delete(Tag::kStaffSystem, RecordKey::Other(++system))) {
    }
}

void Document::MakeLayoutStale() {
    for (u16 system = 1; m_records.Save(Tag::kStaffSystem, RecordKey::Other(system),
                                        BytesOf(EDTStaffSystemSpec2005{}));
         ++system) {
    }
}

}  // namespace standin
