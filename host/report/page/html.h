// Pieces of HTML.
#pragma once

#include <string>
#include <string_view>

#include "host/texts/texts.h"

namespace standin {

// The text with references for the characters that mean markup, between tags and in attributes.
std::string HtmlText(std::string_view text);
std::string HtmlText(Text text);

// A relative path, in UTF-8 with slashes, as the value of href.
std::string HtmlLink(std::string_view path);

// JSON as the content of a script element.
std::string HtmlData(std::string_view json);

// "3 notes", with the number in <b>.
std::string HtmlCount(int number, Text one, Text many);

// The start of a page, up to the content of its body: language, title, looks.
std::string HtmlStart(std::string_view title);

}  // namespace standin
