// The description of the selection for the status bar.
#pragma once

#include <optional>
#include <string>

#include "host/score/document.h"

namespace standin::desktop {

// Such as "Soprano to Bass, measure 3, beat 2 to measure 5, beat 1".
std::string SelectionText(const Document& document);

}  // namespace standin::desktop
