// The notated length of a note.
#pragma once

#include <pugixml.hpp>

#include "host/readback/exact_time.h"

namespace standin::readback {

// By the note's type, dots and time modification; zero without a type.
ExactTime NotatedLength(pugi::xml_node note);

}  // namespace standin::readback
