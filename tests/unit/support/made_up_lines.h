// Ties, slurs and lines of directions for made-up music.
#pragma once

#include <string>

#include "tests/unit/support/made_up_music.h"

namespace standin {

void AddTies(MadeUpPart& part, MadeUpChances& chances);
void AddSlurs(MadeUpPart& part, MadeUpChances& chances);
// Of a kind, "wedge" or "octave-shift": they start before a note and stop before a later one of the
// same voice.
void AddDirections(MadeUpPart& part, const std::string& kind, MadeUpChances& chances);

}  // namespace standin
