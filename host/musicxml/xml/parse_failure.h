// Why the XML parser gave up.
#pragma once

#include <pugixml.hpp>
#include <string>

namespace standin {

// In the language of the user interface, such as "start-end tags mismatch".
std::string WordsFor(const pugi::xml_parse_result& failure);

}  // namespace standin
