// What a measure holds, in words for the status bar.
#pragma once

#include <string>

#include "host/musicxml/imported_score.h"

namespace standin::desktop {

// The layers of a staff (its number) in a measure, from 1, such as
// "Layer 1: half C5+E5, quarter rest. Layer 2: half A4, hidden quarter rest".
std::string MeasureWords(const ImportedScore& score, u16 staff, u16 measure);

}  // namespace standin::desktop
