// Faults that no frame of a merged score may have.
#pragma once

#include <string>
#include <vector>

#include "host/score/document.h"

namespace standin {

// "staff 1, measure 3, layer 0", in the language of the user interface.
std::string WordsFor(FrameKey key);

// Adds a line for each layer that grew or overlaps itself, each entry whose detail flags do not
// match its details, each second voice without a launching entry, and note IDs that are not unique.
void AddFaultsOfFrames(const DocumentContent& before, const DocumentContent& after,
                       std::vector<std::string>& faults);

}  // namespace standin
