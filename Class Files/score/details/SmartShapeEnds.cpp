#include "Class Files/score/details/SmartShapeEnds.h"

bool MoveSmartShapeEnds(EDTSmartShape& shape, const FinPIEntryPtr& from, const FinPIEntryPtr& to) {
    bool anyMoved = false;
    for (EDTSmartShapeEnd* const end : {&shape.start, &shape.end}) {
        if (end->entryNumber == from.Number()) {
            end->staff = to.StaffNumber();
            end->measure = to.Measure();
            end->entryNumber = to.Number();
            anyMoved = true;
        }
    }
    return anyMoved;
}
