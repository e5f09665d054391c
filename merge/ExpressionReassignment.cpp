#include "merge/ExpressionReassignment.h"

#include <algorithm>
#include <map>
#include <set>

#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/document/FinPIScoreExpr.h"
#include "Class Files/score/frames/FinPIEntryPtr.h"
#include "shell/host/callbacks.h"

namespace {

i32 PositionOf(const MyExpressionAssign& expression) {
    if (expression.hasPosition == 0) {
        return 0;
    }
    return static_cast<i32>((u32{expression.positionHigh} << 16U) | expression.positionLow);
}

// The record's word for a layer; 0 = no particular layer, for a layer too high for the record.
u16 LayerField(u16 layer) {
    return layer < ExpressionLayer::kLayerMask ? static_cast<u16>(layer + 1) : u16{0};
}

// Only expressions of the frame's own staff can belong to its entries.
bool IsCandidate(const FinPIScoreExpr& expression, const FramePair& frames, u16 layer) {
    return expression.staffListMarker == 0 && LayerField(layer) != 0 &&
           (expression.layer & ExpressionLayer::kLayerMask) == LayerField(layer) &&
           expression.staff == frames.destination.StaffNumber() && frames.staffSelected &&
           frames.region.ContainsTime(static_cast<i16>(expression.GetCmper1()),
                                      PositionOf(expression));
}

void PostNotLoaded(const FinPIScoreExpr& expression) {
    PostRecordError<FinPILoadEDataFailed>("Plyweld::MergeFrame", expression.Tag());
}

// The records of a measure end where one does not load, unless the host has a later one. If the
// document is gone, nothing is known.
bool IsEnd(const FinPITGFPtr& frame, u16 record) {
    ExpressionAssignRecord last(frame.Measure(), record);
    const bool hasLater =
        last.LoadLastInci() != 0 && last.GetCmper1() == frame.Measure() && last.Inci() >= record;
    return !hasLater && last.DocumentID() == frame.Document();
}

// The number of the first record from this one on; kNoInci = none.
u16 FirstNumberFrom(u16 measure, u16 record) {
    ExpressionAssignRecord next(record == 0 ? static_cast<u16>(measure - 1) : measure,
                                static_cast<u16>(record - 1));
    return next.LoadNext() != 0 && next.GetCmper1() == measure ? next.Inci() : kNoInci;
}

// The next record after one that did not load: the first one after a gap, or kNoInci at the end. If
// the host refused the load, an error is pending.
u16 NumberAfterMissing(const FinPIScoreExpr& missing, const FinPITGFPtr& frame, u16 record) {
    if (IsEnd(frame, record)) {
        return kNoInci;
    }
    const u16 later = FirstNumberFrom(frame.Measure(), record);
    if (later == kNoInci || later <= record) {
        PostNotLoaded(missing);
        return kNoInci;
    }
    return later;
}

// Record numbers of the measure's expressions that may have to move.
std::set<u16> Collect(const FramePair& frames, u16 layer) {
    std::set<u16> candidates;
    const u16 measure = frames.destination.Measure();
    for (u16 record = 0; record < kNoInci;) {
        FinPIScoreExpr expression(measure, record);
        if (expression.Load() == 0) {
            record = NumberAfterMissing(expression, frames.destination, record);
            continue;
        }
        if (IsCandidate(expression, frames, layer)) {
            candidates.insert(record);
        }
        ++record;
    }
    // If the document is gone, the measure only seems to have no expressions.
    if (Host::GetCurrentEnigmaDocument() != frames.destination.Document()) {
        PostError(FinPINoOpenDocumentError{});
    }
    return candidates;
}

// Whether the expression belonged to the music that is now in this entry. If so, its grace index
// becomes that of the entry.
bool Follows(FinPIScoreExpr& expression, const FinPIEntryPtr& entry, i16 graceIndexBefore) {
    if (expression.graceIndex != graceIndexBefore) {
        return false;
    }
    expression.graceIndex = entry.GraceIndex();
    const bool isAttached = entry.IsExpressionAttached(expression, false, false) != 0;
    if (!isAttached) {
        expression.graceIndex = graceIndexBefore;
    }
    return isAttached;
}

bool FollowsOneOf(FinPIScoreExpr& expression, const FinPITGFPtr& frame,
                  const std::map<u32, i16>& entries) {
    return std::ranges::any_of(entries, [&](const auto& entry) {
        const auto& [number, graceIndexBefore] = entry;
        return Follows(expression, frame.EntryAt(frame.FindEntryByNumber(number)),
                       graceIndexBefore);
    });
}

void Reassign(FinPIScoreExpr& expression, const FramePair& frames, u16 layer) {
    if (FollowsOneOf(expression, frames.destination, frames.moved)) {
        expression.layer =
            static_cast<u16>((expression.layer & ~ExpressionLayer::kLayerMask) | LayerField(layer));
        expression.Save();
    } else if (FollowsOneOf(expression, frames.source, frames.sourceGraces)) {
        expression.Save();
    }
}

}  // namespace

void ReassignExpressions(const FramePair& frames, u16 sourceLayer, u16 destinationLayer) {
    if (frames.moved.empty()) {
        return;
    }
    for (const u16 record : Collect(frames, sourceLayer)) {
        FinPIScoreExpr expression(frames.destination.Measure(), record);
        if (expression.Load() != 0 && expression.DocumentID() == frames.destination.Document()) {
            Reassign(expression, frames, destinationLayer);
        } else {
            PostNotLoaded(expression);
        }
    }
}
