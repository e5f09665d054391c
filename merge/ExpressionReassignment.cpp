#include "merge/ExpressionReassignment.h"

#include <algorithm>

#include "Class Files/score/FinPIEntryPtr.h"
#include "Class Files/score/FinPIScoreExpr.h"

namespace {

i32 PositionOf(const MyExpressionAssign& expression) {
    if (expression.hasPosition == 0) {
        return 0;
    }
    return static_cast<i32>((u32{expression.positionHigh} << 16U) | expression.positionLow);
}

bool IsCandidate(const FinPIScoreExpr& expression, const FinPIRegion& region, u16 layer) {
    return expression.staffListMarker == 0 &&
           (expression.layer & ExpressionLayer::kLayerMask) == layer + 1 &&
           region.ContainsStaff(static_cast<u16>(std::max<i16>(expression.staff, 0))) &&
           region.ContainsTime(static_cast<i16>(expression.GetCmper1()), PositionOf(expression));
}

// Record numbers of the measure's expressions that may follow.
std::set<u16> Collect(const FramePair& frames, u16 layer) {
    std::set<u16> candidates;
    for (u16 record = 0; record < kNoInci; ++record) {
        FinPIScoreExpr expression(frames.destination.Measure(), record);
        if (expression.Load() == 0) {
            break;
        }
        if (IsCandidate(expression, frames.region, layer)) {
            candidates.insert(record);
        }
    }
    return candidates;
}

void Reassign(FinPIScoreExpr& expression, const FramePair& frames, u16 layer) {
    for (const u32 entryNumber : frames.moved) {
        const FinPIEntryPtr entry =
            frames.destination.EntryAt(frames.destination.FindEntryByNumber(entryNumber));
        if (entry.IsExpressionAttached(expression, false, false) != 0) {
            expression.layer = static_cast<u16>((expression.layer & ~ExpressionLayer::kLayerMask) |
                                                ((layer + 1U) & ExpressionLayer::kLayerMask));
            expression.Save();
            return;
        }
    }
}

}  // namespace

void ReassignExpressions(const FramePair& frames, u16 sourceLayer, u16 destinationLayer) {
    if (frames.moved.empty()) {
        return;
    }
    for (const u16 record : Collect(frames, sourceLayer)) {
        FinPIScoreExpr expression(frames.destination.Measure(), record);
        if (expression.Load() != 0) {
            Reassign(expression, frames, destinationLayer);
        }
    }
}
