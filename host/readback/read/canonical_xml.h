// A canonical text for elements: equal if the elements have the same meaning.
#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace standin::readback {

// Elements that come in pairs, identified by a number without other meaning.
bool IsLine(std::string_view elementName);

// Without white space between tags, comments and instructions; attributes by name; without the
// numbers of lines and lyrics. Children named "voice" and "offset" are left out of a child of a
// measure.
std::string CanonicalXml(pugi::xml_node node);

// The attributes alone: ` name="value"` each, without the one named.
std::string CanonicalAttributes(pugi::xml_node node, std::string_view without = {});

// The element's text; values may be on separate lines.
std::string TrimmedValue(pugi::xml_node node);

}  // namespace standin::readback
