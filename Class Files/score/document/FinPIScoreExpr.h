// An expression assigned to a position in a measure.
#pragma once

#include "Class Files/score/records/EnigmaRecords.h"

// Key: measure and record number. A load also looks up the expression's definition and fills
// the fields that say how the expression is placed; without the definition the load fails.
class FinPIScoreExpr final : public ExpressionAssignRecord {
public:
    using ExpressionAssignRecord::ExpressionAssignRecord;

    i16 Load() override;
    i16 LoadNext() override { return CompleteStep(ExpressionAssignRecord::LoadNext()); }
    i16 LoadLast() override { return CompleteStep(ExpressionAssignRecord::LoadLast()); }
    i16 LoadLastInci() override { return CompleteStep(ExpressionAssignRecord::LoadLastInci()); }
    i16 LoadLastCmper1(u16 cmper1) {
        return CompleteStep(ExpressionAssignRecord::LoadLastCmper1(cmper1));
    }
    i16 IsPartSpecific() const override { return 1; }
    // A part only positions the score's expressions; it has none that could be deleted.
    i16 CanDeleteInPart() override { return 0; }
    // Compares the host's fields.
    i16 IsSameMeasOther(const FinPIMeasOther& other) const override;

    // Fills hasPosition, belongsToEntry and what follows from the definition, which it loads with
    // FX_LoadEData from the expression's document. 0 if that document cannot be made current, or,
    // with an error posted, if the definition does not exist.
    i16 LoadCachedItems();

private:
    i16 Complete(i16 found);      // what a load or a step found
    i16 CompleteStep(i16 found);  // a step that fails addresses nothing
};
