// Reading values from nodes of a parsed score, and finding the text they came from.
#pragma once

#include <optional>
#include <pugixml.hpp>
#include <string_view>

#include "host/score/rational.h"

namespace standin {

// Where the node's '<' stands in the text it was parsed from.
std::size_t OffsetOf(pugi::xml_node node);

// The node's text, from its '<' to past its end.
std::string_view TextOf(std::string_view text, pugi::xml_node node);

// The attributes of the node as written, trimmed; empty when it has none.
std::string_view AttributesOf(std::string_view text, pugi::xml_node node);

// The first node nested deeper than the limit below the given one; null when there is none.
pugi::xml_node FindNestedDeeper(pugi::xml_node top, int limit);

// A decimal number such as "-12.5", exactly; none when it is no such number or too long.
std::optional<Rational> DecimalOf(std::string_view value);

// A whole number; none when it is none or outside int.
std::optional<int> IntegerOf(std::string_view value);

std::string_view Trimmed(std::string_view value);

}  // namespace standin
