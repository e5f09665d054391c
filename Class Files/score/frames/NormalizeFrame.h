// The form in which entries are saved.
#pragma once

#include <span>

#include "shell/host/host_frames.h"

// Gives every note an ID of its own and the copy of it in the note's flags, clears the note slots
// past the note count, and gives an entry without notes its one placeholder note. Entries that are
// already normalized do not change.
void NormalizeFrame(std::span<EXENTRY> entries);
