// The form in which entries are saved.
#pragma once

#include "shell/host/host_frames.h"

// Gives every note an ID of its own and the copy of it in the note's flags, clears the note slots
// past the note count, and gives an entry without notes its one placeholder note. A frame that is
// already normalized does not change.
void NormalizeFrame(EXFRAME& frame);
