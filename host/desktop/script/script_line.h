// A script runs the program without a user: one command per line, words separated by blanks, texts
// with blanks in quotes. "#" begins a comment. A line that begins with "en:" or "es:" counts only
// when the program's texts are in that language.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace standin::desktop {

enum class ScriptLanguage { kEnglish, kSpanish };

struct ScriptLine {
    int number = 0;  // from 1
    std::string text;
    std::vector<std::string> words;  // at least one
};

struct ScriptText {
    std::vector<ScriptLine> lines;
    std::string problem;  // empty, or the first line that cannot be read, and why
};

// In quotes, \" is a quote, \\ a backslash, \n a new line.
ScriptText ReadScript(std::string_view text, ScriptLanguage language);

// The parts of a text between separators, without the blanks around them.
std::vector<std::string> SplitText(std::string_view text, char separator);

// "3" or "3-5"; nothing for anything else, for numbers below 1, or if the end comes first.
struct ScriptRange {
    int first = 1;
    int last = 1;
};
std::optional<ScriptRange> ReadRange(std::string_view text);

}  // namespace standin::desktop
