#include "host/score/shape_marks.h"

#include "host/score/records/tags.h"

namespace standin {

bool ShapeMarks::Has(u32 entry, u16 shape) {
    const auto [marks, isNew] = m_marks.try_emplace(entry);
    if (isNew) {
        marks->second = Read(entry);
    }
    return marks->second.contains(shape);
}

std::set<u16> ShapeMarks::Read(u32 entry) const {
    std::set<u16> shapes;
    const auto add = [&shapes](const Bytes& mark) {
        shapes.insert(FromBytes<EDTSmartShapeEntMark>(mark).shapeNumber);
    };
    const RecordStore::Table& marks = m_document.Records().OfTag(Tag::kShapeOnEntry);
    const RecordKey first = RecordKey::OfEntry(entry);
    if (m_state == State::kNow) {
        for (auto at = marks.lower_bound(first); at != marks.end() && at->first.Entry() == entry;
             ++at) {
            add(at->second);
        }
        return shapes;
    }
    for (u16 inci = 0;; ++inci) {
        const Bytes* mark = m_document.ImportedRecord(Tag::kShapeOnEntry, first.WithInci(inci));
        if (mark == nullptr) {
            return shapes;
        }
        add(*mark);
    }
}

}  // namespace standin
