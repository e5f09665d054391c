// Finds what readers stumble over, once a score is read: what shares time with its own voice, what
// tuplets notes are in, ties that run backward in the text, lyrics with one number.
#pragma once

#include "host/readback/score_content.h"
#include "host/readback/texts.h"

namespace standin::readback {

// Fills in the marks of all chords.
void MarkStreams(Score& score, Texts& texts);

}  // namespace standin::readback
