// Names of notes in messages.
#pragma once

#include <pugixml.hpp>
#include <string>

namespace standin::readback {

// "C#4", "unpitched E4", with other alterations than whole semitones as "C(0.5)4".
std::string PitchWords(pugi::xml_node note);

// "dotted quarter", "grace eighth"; "note" without a type.
std::string LengthWords(pugi::xml_node note);

}  // namespace standin::readback
