// The selection that the user's options describe.
#pragma once

#include <string>
#include <variant>

#include "host/cli/command_line.h"
#include "host/score/document.h"

namespace standin::cli {

// Ends beyond the score's are the score's own. A text: what the score does not have.
std::variant<EREGION, std::string> SelectionIn(const Document& document,
                                               const SelectionOptions& options);

}  // namespace standin::cli
