// Expressions follow the music they hang on into its new layer.
#pragma once

#include "merge/FramePair.h"

// The selected expressions of the source layer that hang on an entry whose music moved are
// assigned to the destination layer; those of grace notes, also of such as stayed, find their note
// at its new place. Layers from 0.
void ReassignExpressions(const FramePair& frames, u16 sourceLayer, u16 destinationLayer);
