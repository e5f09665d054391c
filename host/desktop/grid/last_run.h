// What the last run did, in words for the status bar.
#pragma once

#include <string>

#include "host/score/document.h"

namespace standin::desktop {

// Such as "Plyweld 1-4: 12 chords formed, 14 notes moved", from the last edit that can be undone.
// Empty without such an edit.
std::string LastRunText(const Document& document);

}  // namespace standin::desktop
