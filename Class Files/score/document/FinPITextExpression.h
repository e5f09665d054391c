// The definition of a text expression, by its number.
#pragma once

#include "Class Files/score/records/EnigmaRecords.h"

class FinPITextExpression final : public TextExpressionRecord {
public:
    explicit FinPITextExpression(u16 definition)
        : TextExpressionRecord{HostTag("SODT"), definition} {
        SetSize(FinPITextExpression::MinimumBodySize(0));
    }
    // The text's own reference follows the structure.
    u32 MinimumBodySize(u16 /*inci*/) const override { return 38; }
};
