// Single measures of single staves, cut from a score's text so that they can be engraved by
// themselves.
#pragma once

#include <string>
#include <vector>

#include "shell/host/host_types.h"

namespace standin {

struct ExcerptPlace {
    std::string part;         // its id
    u16 staff = 1;            // of the part, from the top
    std::size_t measure = 0;  // from 0
};

struct ExcerptNote {
    i64 onset = 0;      // duration units from the barline
    std::string pitch;  // as PitchName and NameOfNote name it
    std::string voice;
};

struct Excerpt {
    // A <measure> of MusicXML with the attributes in force where it starts; empty when the text
    // has no such measure. Its notes have the ids "n0", "n1" ...
    std::string measure;
    std::vector<ExcerptNote> notes;  // in the order of these ids; no rests
};

// One excerpt for each place, in that order. text: of a partwise score, in UTF-8.
std::vector<Excerpt> CutExcerpts(const std::string& text, const std::vector<ExcerptPlace>& places);

}  // namespace standin
