#include "host/texts/texts.h"

#include <array>
#include <cstddef>

namespace standin {

namespace {

struct Row {
    std::string_view english;
    std::string_view spanish;
};

constexpr Row kRows[] = {
#define PLYWELD_TEXT(name, english, spanish) {english, spanish},
#include "host/texts/texts.inc"
#undef PLYWELD_TEXT
};

Language g_language = Language::kEnglish;

}  // namespace

void SetLanguage(Language language) {
    g_language = language;
}

Language CurrentLanguage() {
    return g_language;
}

std::string_view Say(Text text) {
    return SayIn(g_language, text);
}

std::string_view SayIn(Language language, Text text) {
    const Row& row = kRows[static_cast<std::size_t>(text)];
    return language == Language::kSpanish ? row.spanish : row.english;
}

std::string Say(Text text, const std::vector<std::string>& values) {
    const std::string_view pattern = Say(text);
    std::string result;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const bool isPlaceholder =
            pattern[at] == '{' && at + 2 < pattern.size() && pattern[at + 2] == '}';
        const auto index = isPlaceholder ? static_cast<std::size_t>(pattern[at + 1] - '0') : 0;
        if (isPlaceholder && index < values.size()) {
            result += values[index];
            at += 2;
        } else {
            result += pattern[at];
        }
    }
    return result;
}

}  // namespace standin
