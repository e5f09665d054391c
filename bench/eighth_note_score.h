// A score for measuring: one staff in which two layers play the same rhythm.
#pragma once

#include "host/score/document.h"

namespace bench {

inline constexpr int kEntriesPerLayer = 8;
inline constexpr int kLayers = 2;

// Fills an empty document with measures of 4/4, each with eight eighth notes in two layers.
void AddEighthNotes(standin::Document& document, int measures);

}  // namespace bench
