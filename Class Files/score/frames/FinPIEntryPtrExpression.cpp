#include "Class Files/score/document/FinPIScoreExpr.h"
#include "Class Files/score/frames/FinPIEntryPtr.h"

namespace {

i32 HorizontalPosition(const FinPIScoreExpr& expression) {
    const u32 position = (u32{expression.positionHigh} << 16U) | expression.positionLow;
    return expression.hasPosition != 0 ? static_cast<i32>(position) : 0;
}

}  // namespace

bool FinPIEntryPtr::IsAttachedHere(const FinPIScoreExpr& expression, bool launchTest,
                                   bool layerTest) const {
    const int assignedLayer = (expression.layer & ExpressionLayer::kLayerMask) - 1;
    const bool isOfEntry = *this && expression.staffListMarker == 0 &&
                           expression.belongsToEntry != 0 && expression.staff == StaffNumber();
    return isOfEntry && expression.DocumentID() == m_document &&
           expression.GetCmper1() == Measure() &&
           HorizontalPosition(expression) == Entry()->elapsedTime &&
           (!layerTest || assignedLayer < 0 || assignedLayer == Layer()) &&
           expression.graceIndex == GraceIndex() &&
           (!launchTest || !HasFlag(EntryFlag::kLaunchVoice2));
}

i16 FinPIEntryPtr::IsExpressionAttached(const FinPIScoreExpr& expression, bool launchTest,
                                        bool layerTest) const {
    return IsAttachedHere(expression, launchTest, layerTest) &&
           !PreviousInVoice().IsAttachedHere(expression, launchTest, layerTest);
}
