// A short name for a note.
#pragma once

#include <string>

#include "shell/host/host_frames.h"

namespace standin {

// Such as "c#4~" for a tie that starts and "~bb3" for one that ends; octave 4 begins at the
// tonic of the key, which is taken for c.
std::string NameOfNote(const EXNOTE& note);

}  // namespace standin
