#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/EnigmaRecords.h"
#include "Class Files/score/FinPISmartShapeMark.h"
#include "Class Files/score/SmartShapeEnds.h"
#include "shell/host/detail_flags.h"

namespace {

// Redirects the ends of the shape that are at one entry to another.
bool MoveShapeEnds(u16 shapeNumber, const FinPIEntryPtr& from, const FinPIEntryPtr& to) {
    FinPISmartShape shape{shapeNumber};
    if (shape.Load() == 0) {
        PostRecordError<FinPILoadEDataFailed>("FinPIEntryPtr::MoveSmartShapeAssigns", shape.Tag());
        return false;
    }
    return !MoveSmartShapeEnds(shape, from, to) || shape.Save() != 0;
}

}  // namespace

i16 FinPIEntryPtr::MoveSmartShapeAssigns(const FinPIEntryPtr& source, u32 tag) const {
    if (!*this || !source) {
        return 0;
    }
    if (!source.HasFlag(DetailFlag::kSmartShape) || source.Number() == Number()) {
        return 1;
    }
    FinPISmartShapeMark from{source, tag};
    FinPISmartShapeMark to{*this, tag};
    for (; from.Load() != 0; from.SelectRecord(0)) {
        to.SelectRecord(FinPIEntryDetail::kNewRecord);
        if (to.CopyAttributes(from) == 0 || !MoveShapeEnds(from.ShapeNumber(), source, *this) ||
            to.Create() == 0 || from.Delete() == 0) {
            return 0;
        }
    }
    const u32 otherTag =
        tag == SmartShapeMarkTag::kEntry ? SmartShapeMarkTag::kLyric : SmartShapeMarkTag::kEntry;
    if (!FinPISmartShapeMark{source, otherTag}.HasRecord()) {
        source.Entry()->flags &= ~DetailFlag::kSmartShape;
    }
    return 1;
}
