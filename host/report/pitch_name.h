// Names of pitches as the file writes them.
#pragma once

#include <pugixml.hpp>
#include <string>

namespace standin {

// Of a <pitch> or <unpitched>: "C#4"; "C(0.5)4" for an alteration that is not in whole semitones;
// "unpitched E4", or "unpitched" where no place on the staff is given.
std::string PitchName(pugi::xml_node element);

}  // namespace standin
