#include "host/desktop/script/script_line.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace standin::desktop {

namespace {

constexpr std::string_view kBlanks = " \t\r";

// The word in quotes at the text's start, which is cut off. Nothing when it is not closed.
std::optional<std::string> TakeQuoted(std::string_view& text) {
    std::string word;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '"') {
            text.remove_prefix(i + 1);
            return word;
        }
        if (text[i] == '\\' && i + 1 < text.size()) {
            ++i;
            word += text[i] == 'n' ? '\n' : text[i];
        } else {
            word += text[i];
        }
    }
    return std::nullopt;
}

std::optional<std::vector<std::string>> Words(std::string_view text) {
    std::vector<std::string> words;
    for (;;) {
        const std::size_t start = text.find_first_not_of(kBlanks);
        if (start == std::string_view::npos || text[start] == '#') {
            return words;
        }
        text.remove_prefix(start);
        if (text[0] == '"') {
            auto word = TakeQuoted(text);
            if (!word) {
                return std::nullopt;
            }
            words.push_back(std::move(*word));
        } else {
            const std::size_t end = std::min(text.find_first_of(kBlanks), text.size());
            words.emplace_back(text.substr(0, end));
            text.remove_prefix(end);
        }
    }
}

// Cuts a language mark off the line. False: the line is for another language.
bool CountsFor(std::string_view& line, ScriptLanguage language) {
    const std::size_t start = line.find_first_not_of(kBlanks);
    const std::string_view mark = start == std::string_view::npos ? "" : line.substr(start, 3);
    if (mark != "en:" && mark != "es:") {
        return true;
    }
    line.remove_prefix(start + mark.size());
    return (mark == "es:") == (language == ScriptLanguage::kSpanish);
}

std::optional<int> WholeNumber(std::string_view text) {
    int number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc{} || read.ptr != text.data() + text.size() || number < 1) {
        return std::nullopt;
    }
    return number;
}

}  // namespace

ScriptText ReadScript(std::string_view text, ScriptLanguage language) {
    ScriptText script;
    int number = 0;
    while (!text.empty()) {
        ++number;
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (!CountsFor(line, language)) {
            continue;
        }
        auto words = Words(line);
        if (!words) {
            script.problem = "line " + std::to_string(number) + ": a quote is not closed";
            return script;
        }
        if (!words->empty()) {
            script.lines.push_back({number, std::string{line}, std::move(*words)});
        }
    }
    return script;
}

std::vector<std::string> SplitText(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (;;) {
        const std::size_t end = std::min(text.find(separator), text.size());
        std::string_view part = text.substr(0, end);
        const std::size_t first = part.find_first_not_of(kBlanks);
        part = first == std::string_view::npos
                   ? std::string_view{}
                   : part.substr(first, part.find_last_not_of(kBlanks) - first + 1);
        parts.emplace_back(part);
        if (end == text.size()) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

std::optional<ScriptRange> ReadRange(std::string_view text) {
    const std::size_t dash = text.find('-');
    const auto first = WholeNumber(text.substr(0, dash));
    const auto last = dash == std::string_view::npos ? first : WholeNumber(text.substr(dash + 1));
    if (!first || !last || *last < *first) {
        return std::nullopt;
    }
    return ScriptRange{*first, *last};
}

}  // namespace standin::desktop
