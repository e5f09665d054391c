// Expressions follow their music into its new layer.
#pragma once

#include "merge/FramePair.h"

// Assigns the selected expressions of the source layer whose entry's music moved to the destination
// layer. Expressions of grace notes, including those that stayed, get the new index of their note.
// Layers from 0.
void ReassignExpressions(const FramePair& frames, u16 sourceLayer, u16 destinationLayer);
