// Expressions follow the music they hang on into its new layer.
#pragma once

#include "merge/FramePair.h"

// The selected expressions of the source layer that hang on an entry that received music are
// assigned to the destination layer. Layers from 0.
void ReassignExpressions(const FramePair& frames, u16 sourceLayer, u16 destinationLayer);
