// The programs' messages, in the language of the user interface.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace standin {

// One per row of texts.inc.
enum class Text {
#define PLYWELD_TEXT(name, english, spanish) name,
#include "host/texts/texts.inc"
#undef PLYWELD_TEXT
};

enum class Language { kEnglish, kSpanish };

// The language until this is called: English.
void SetLanguage(Language language);
Language CurrentLanguage();

// The text itself, including its placeholders.
std::string_view Say(Text text);
std::string_view SayIn(Language language, Text text);

// The text with {0}, {1} ... replaced by the values in that order. A value may hold braces.
std::string Say(Text text, const std::vector<std::string>& values);

}  // namespace standin
