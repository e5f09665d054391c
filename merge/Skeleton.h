// Rests for an empty destination, so that part of it can be filled at the right times.
#pragma once

#include "merge/FramePair.h"

// If the measure is partly selected and the destination is empty, gives it a rest for each voice-1
// entry of the source except grace entries, with the source's tuplets. False: the frame could not
// be saved and an error is pending.
bool FitSkeleton(FramePair& frames);
