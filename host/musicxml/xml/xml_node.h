// Reads values from nodes of a parsed score, and finds their source text.
#pragma once

#include <optional>
#include <pugixml.hpp>
#include <string_view>

#include "host/score/time/rational.h"

namespace standin {

// The offset of the node's '<' in the text it was parsed from.
std::size_t OffsetOf(pugi::xml_node node);

// Where the text goes on behind the node's end. The nodes must have been parsed with comments and
// instructions.
std::size_t EndOf(std::string_view text, pugi::xml_node node);

// The node's text, from its '<' to past its end.
std::string_view TextOf(std::string_view text, pugi::xml_node node);

// The attributes of the node as written, trimmed; empty when it has none.
std::string_view AttributesOf(std::string_view text, pugi::xml_node node);

// A decimal number such as "-12.5", exactly; none if it is not a number or too long.
std::optional<Rational> DecimalOf(std::string_view value);

// A whole number; none if it is not one or outside int.
std::optional<int> IntegerOf(std::string_view value);

std::string_view Trimmed(std::string_view value);

}  // namespace standin
