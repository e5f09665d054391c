// The numbers of the lyrics at one note: each verse of a merged chord needs its own.
#pragma once

#include <string>
#include <vector>

#include "host/musicxml/entry_texts.h"

namespace standin {

// For each lyric its new number; empty = it keeps its own. If an earlier lyric of the note has the
// same number, a lyric that joined the note takes the next free one.
std::vector<std::string> LyricNumbers(const Fragments& fragments,
                                      const std::vector<LyricAtEntry>& lyrics);

}  // namespace standin
