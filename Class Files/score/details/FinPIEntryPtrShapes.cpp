#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/details/FinPISmartShapeMark.h"
#include "Class Files/score/details/SmartShapeEnds.h"
#include "Class Files/score/records/EnigmaRecords.h"
#include "shell/host/detail_flags.h"

namespace {

constexpr char kOperation[] = "FinPIEntryPtr::MoveSmartShapeAssigns";

// Finds it without a load, which the host may have refused.
bool IsStored(u16 shapeNumber) {
    FinPISmartShape last{shapeNumber};
    return last.LoadLastInci() != 0 && last.GetCmper1() == shapeNumber;
}

// Redirects the ends of the shape from one entry to another. Scores contain marks whose shape was
// deleted long ago; they have no end to redirect.
bool MoveShapeEnds(u16 shapeNumber, const FinPIEntryPtr& from, const FinPIEntryPtr& to) {
    FinPISmartShape shape{shapeNumber};
    if (shape.Load() != 0) {
        return !MoveSmartShapeEnds(shape, from, to) || shape.Save() != 0;
    }
    if (IsStored(shapeNumber)) {
        PostRecordError<FinPILoadEDataFailed>(kOperation, shape.Tag());
        return false;
    }
    return true;
}

}  // namespace

i16 FinPIEntryPtr::MoveSmartShapeAssigns(const FinPIEntryPtr& source, u32 tag) const {
    if (!*this || !source) {
        return 0;
    }
    FinPISmartShapeMark from{source, tag};
    const bool isMarked = source.HasFlag(DetailFlag::kSmartShape) || from.Load() != 0;
    if (!isMarked || source.Number() == Number()) {
        return 1;
    }
    if (!CheckDocumentIsCurrent(kOperation)) {
        return 0;
    }
    FinPISmartShapeMark to{*this, tag};
    FinPIEntryDetail::Walk marks{from, kOperation};
    while (marks.Next()) {
        to.SelectRecord(FinPIEntryDetail::kNewRecord);
        if (to.CopyAttributes(from) == 0 || !MoveShapeEnds(from.ShapeNumber(), source, *this) ||
            to.Create() == 0 || from.Delete() == 0) {
            return 0;
        }
        marks.Deleted();
    }
    if (marks.HasFailed()) {  // a mark that did not load is still an end
        return 0;
    }
    const u32 otherTag = tag == EntryDetailTag::kSmartShapeAssign
                             ? EntryDetailTag::kSmartShapeLyricAssign
                             : EntryDetailTag::kSmartShapeAssign;
    if (!FinPISmartShapeMark{source, otherTag}.HasRecord()) {
        source.Entry()->flags &= ~DetailFlag::kSmartShape;
    }
    return 1;
}
