// The score of the current document, seen whatever part the host shows.
#pragma once

#include "Class Files/foundation/PartScope.h"
#include "Class Files/score/records/EnigmaRecords.h"

// The host's current part is the score for as long as the view lives. The record, which a
// document need not have, is not loaded.
class FinPIScoreView final : public FinPIPartView {
public:
    FinPIScoreView() : FinPIPartView{static_cast<u16>(PartScope::kScore)} {}

private:
    PartScope m_scope{PartScope::kScore};
};
