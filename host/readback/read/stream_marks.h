// Finds notation that readers misread, after a score is read: overlaps within a voice, the tuplets
// of notes, ties that run backward in the text, lyrics with equal numbers.
#pragma once

#include "host/readback/score_content.h"
#include "host/readback/texts.h"

namespace standin::readback {

// Fills in the marks of all chords.
void MarkStreams(Score& score, Texts& texts);

}  // namespace standin::readback
