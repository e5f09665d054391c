// How music is called in messages.
#pragma once

#include <string>

#include "host/musicxml/music/music.h"

namespace standin {

std::string WordsForPlace(const MusicEntry& entry);  // "staff 2, measure 5, beat 2.5"
std::string WordsForNote(const MusicEntry& entry, const MusicNote& note);  // "C#4 quarter"
std::string WordsForLength(const MusicEntry& entry);                       // "dotted quarter"

// "<staccato/>", cut when long.
std::string WordsForText(std::string_view xml);

// The text as it counts in a comparison: without white space between tags, without the number
// of a spanner, without a direction's voice.
std::string CanonicalText(std::string_view xml);

}  // namespace standin
