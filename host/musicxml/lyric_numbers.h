// The numbers of the lyrics at one note: verses that came together there need one each.
#pragma once

#include <string>
#include <vector>

#include "host/musicxml/entry_texts.h"

namespace standin {

// For each lyric the number it needs instead of its own; empty = its own will do. A lyric that
// joined the note gives way to those of the same number before it, and takes the next number that
// no lyric of the note has.
std::vector<std::string> LyricNumbers(const Fragments& fragments,
                                      const std::vector<LyricAtEntry>& lyrics);

}  // namespace standin
