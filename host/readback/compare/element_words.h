// What an element says, for a person who does not read XML.
#pragma once

#include <string>

namespace standin::readback {

// `words "dolce"`, `tied (type start)`, `clef: sign "F", line "4"`: names of elements, their
// texts and attributes, in one line and not too long. xml: one element, whose end may be missing.
std::string ElementWords(const std::string& xml);

// Line breaks and other controls become blanks; what is too long is cut between two characters.
std::string InOneLine(std::string text);

}  // namespace standin::readback
