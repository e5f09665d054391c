#include "host/cli/usage/option_values.h"

#include <algorithm>
#include <charconv>

namespace standin::cli {

namespace {

std::optional<int> WholeNumber(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || number < 1 || number > 32767) {
        return std::nullopt;
    }
    return number;
}

bool IsOneOf(std::string_view choices, std::string_view value) {
    while (!choices.empty()) {
        const std::string_view choice = choices.substr(0, choices.find(' '));
        if (choice == value) {
            return true;
        }
        choices.remove_prefix(std::min(choices.size(), choice.size() + 1));
    }
    return false;
}

std::string Listed(std::string_view choices) {
    std::string list;
    for (const char letter : choices) {
        list += letter == ' ' ? std::string{", "} : std::string{letter};
    }
    return list;
}

}  // namespace

std::optional<Range> ParseRange(std::string_view text) {
    const std::size_t dash = text.find('-');
    const auto first = WholeNumber(text.substr(0, dash));
    if (!first) {
        return std::nullopt;
    }
    if (dash == std::string_view::npos) {
        return Range{*first, *first};
    }
    if (dash + 1 == text.size()) {
        return Range{*first, std::nullopt};
    }
    const auto last = WholeNumber(text.substr(dash + 1));
    if (!last || *last < *first) {
        return std::nullopt;
    }
    return Range{*first, *last};
}

std::optional<std::vector<MeasureStretch>> ParseMeasures(std::string_view text) {
    std::vector<MeasureStretch> stretches;
    for (;;) {
        const std::size_t comma = std::min(text.find(','), text.size());
        const std::string_view item = text.substr(0, comma);
        const std::size_t dash = std::min(item.find('-'), item.size());
        MeasureStretch& stretch = stretches.emplace_back();
        stretch.first = item.substr(0, dash);
        if (dash == item.size()) {
            stretch.last = stretch.first;
        } else if (dash + 1 < item.size()) {
            stretch.last = item.substr(dash + 1);
        }
        if (stretch.first.empty() || stretch.first == "#" || stretch.last == "#") {
            return std::nullopt;
        }
        if (comma == text.size()) {
            return stretches;
        }
        text.remove_prefix(comma + 1);
    }
}

std::optional<double> ParseBeat(std::string_view text) {
    double beat = 0;
    const char* last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, beat);
    const bool isBeat = error == std::errc{} && end == last && beat >= 1 && beat <= 1000;
    return isBeat ? std::optional{beat} : std::nullopt;
}

std::optional<int> ParseCount(std::string_view text) {
    return WholeNumber(text);
}

std::string ProblemOf(const OptionRow& row, const std::vector<std::string>& values) {
    const std::string name = row.LongName();
    const std::string& value = values.back();
    if (row.kind == ValueKind::kNone) {
        return value == "true" ? std::string{} : Say(Text::kNoValueWanted, {name});
    }
    if (value.empty()) {
        return Say(Text::kMissingValue, {name});
    }
    if (values.size() > 1 && row.kind != ValueKind::kScores && row.kind != ValueKind::kNames) {
        return Say(Text::kGivenTwice, {name});
    }
    if (row.kind == ValueKind::kChoice && !IsOneOf(row.choices, value)) {
        return Say(Text::kNotOneOf, {name, value, Listed(row.choices)});
    }
    if (row.kind == ValueKind::kRange && !ParseRange(value)) {
        return Say(Text::kNotARange, {name, value});
    }
    if (row.kind == ValueKind::kMeasures && !ParseMeasures(value)) {
        return Say(Text::kNotMeasures, {name, value});
    }
    if (row.kind == ValueKind::kCount && !ParseCount(value)) {
        return Say(Text::kNotACount, {name, value});
    }
    if (row.kind == ValueKind::kBeat && !ParseBeat(value)) {
        return Say(Text::kNotABeat, {name, value});
    }
    return {};
}

}  // namespace standin::cli
