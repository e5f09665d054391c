// The part of a score that the user selected.
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/cli/usage/command_line.h"
#include "host/musicxml/imported_score.h"

namespace standin::cli {

// The regions to merge in sequence, in slots of the score's own staff list; one per range of
// measures. A string is the reason why there are none.
std::variant<std::vector<EREGION>, std::string> SelectionsIn(const Document& document,
                                                             const std::vector<ScorePart>& parts,
                                                             const SelectionOptions& options);

}  // namespace standin::cli
