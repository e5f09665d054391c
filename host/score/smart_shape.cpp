#include "host/score/smart_shape.h"

namespace standin {
namespace {

void MarkEnd(Document& document, u32 tag, u32 entry, u16 shapeNumber) {
    EDTSmartShapeEntMark mark{};
    mark.shapeNumber = shapeNumber;
    document.Records().Create(tag, RecordKey::OfEntry(entry, kAppend), BytesOf(mark));
    document.RefreshDetailFlags(entry);
}

}  // namespace

u16 AddSmartShape(Document& document, EDTSmartShape shape, u32 markTag) {
    RecordStore& records = document.Records();
    const RecordStore::Table& shapes = records.OfTag(Tag::kSmartShape);
    const u16 number =
        shapes.empty() ? u16{1} : static_cast<u16>(shapes.rbegin()->first.OtherItem() + 1);
    records.Create(Tag::kSmartShape, RecordKey::Other(number), BytesOf(shape));
    MarkEnd(document, markTag, shape.start.entryNumber, number);
    if (shape.end.entryNumber != shape.start.entryNumber) {
        MarkEnd(document, markTag, shape.end.entryNumber, number);
    }
    return number;
}

}  // namespace standin
