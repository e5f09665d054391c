#include "Class Files/score/document/FinPIScoreExpr.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <optional>

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/document/FinPITextExpression.h"

namespace {

// Nothing, and an error posted, when the definition does not load.
template <typename Definition, typename Placement>
std::optional<i16> LoadPlacement(Definition definition, Placement placement) {
    if (definition.Load() == 0) {
        PostRecordError<FinPILoadEDataFailed>("short __cdecl FinPIScoreExpr::LoadCachedItems(void)",
                                              definition.Tag());
        return std::nullopt;
    }
    return placement(definition);
}

std::optional<i16> PlacementOf(const MyExpressionAssign& expression) {
    if ((expression.layer & ExpressionLayer::kShapeDefinition) != 0) {
        return LoadPlacement(FinPIShapeExpression(expression.definition),
                             [](const auto& shape) { return shape.horizontalPlacement; });
    }
    return LoadPlacement(FinPITextExpression(expression.definition),
                         [](const auto& text) { return text.Body().horizontalPlacement; });
}

}  // namespace

i16 FinPIScoreExpr::LoadCachedItems() {
    hasPosition = 0;
    belongsToEntry = 0;
    std::ranges::fill(cached28, u8{0});
    const DocumentScope document{m_docID};
    const std::optional<i16> placement = document ? PlacementOf(*this) : std::nullopt;
    if (!placement) {
        return 0;
    }
    belongsToEntry = *placement >= ExpressionPlacement::kFirstOnEntry ? 1 : 0;
    hasPosition = belongsToEntry != 0 || *placement == ExpressionPlacement::kAtPosition ? 1 : 0;
    return 1;
}

i16 FinPIScoreExpr::IsSameMeasOther(const FinPIMeasOther& other) const {
    constexpr std::size_t kHostBytes = offsetof(MyExpressionAssign, hasPosition);
    return other.Tag() == m_tag && std::memcmp(GetData(), other.GetData(), kHostBytes) == 0;
}

i16 FinPIScoreExpr::Load() {
    return m_loaded != 0 ? IsLoaded() : Complete(ExpressionAssignRecord::Load());
}

i16 FinPIScoreExpr::Complete(i16 found) {
    if (found != 0 && LoadCachedItems() == 0) {
        m_loaded = 0;
    }
    return IsLoaded();
}

i16 FinPIScoreExpr::CompleteStep(i16 found) {
    if (Complete(found) == 0) {
        Reset(kNoInci);
    }
    return IsLoaded();
}
