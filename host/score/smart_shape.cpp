#include "host/score/smart_shape.h"

namespace standin {
namespace {

bool MarkEnd(Document& document, u32 tag, u32 entry, u16 shapeNumber) {
    EDTSmartShapeEntMark mark{};
    mark.shapeNumber = shapeNumber;
    const bool fits = document.Records()
                          .Create(tag, RecordKey::OfEntry(entry, kAppend), BytesOf(mark))
                          .has_value();
    document.RefreshDetailFlags(entry);
    return fits;
}

}  // namespace

u16 AddSmartShape(Document& document, EDTSmartShape shape, u32 markTag) {
    RecordStore& records = document.Records();
    const RecordStore::Table& shapes = records.OfTag(Tag::kSmartShape);
    const u16 last = shapes.empty() ? u16{0} : shapes.rbegin()->first.OtherItem();
    if (last >= kAppend - 1) {
        return 0;
    }
    const u16 number = static_cast<u16>(last + 1);
    records.Create(Tag::kSmartShape, RecordKey::Other(number), BytesOf(shape));
    const bool fits = MarkEnd(document, markTag, shape.start.entryNumber, number) &&
                      (shape.end.entryNumber == shape.start.entryNumber ||
                       MarkEnd(document, markTag, shape.end.entryNumber, number));
    return fits ? number : u16{0};
}

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
