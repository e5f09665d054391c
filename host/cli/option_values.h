// The values of options, from their texts.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/cli/option_table.h"

namespace standin::cli {

// "5-12", "5-" or "5": a first number and maybe a last one.
struct Range {
    int first = 1;
    std::optional<int> last;  // none: to the end
};

// Numbers from 1 to 32767. Nothing when the text is no such range, or ends before it begins.
std::optional<Range> ParseRange(std::string_view text);

// "5-12", "#5-" or "1,3,7-9": stretches of measures, each by its first and last one.
struct MeasureStretch {
    std::string first;
    std::optional<std::string> last;  // none: to the end
};

// A measure is named by its printed number, or by "#" and its place from 1. Nothing when a
// measure is missing between the signs.
std::optional<std::vector<MeasureStretch>> ParseMeasures(std::string_view text);

// From 1 to 1000. Nothing when the text is no such number.
std::optional<double> ParseBeat(std::string_view text);

// From 1 to 32767. Nothing when the text is no such number.
std::optional<int> ParseCount(std::string_view text);

// What is wrong with the values given for an option, in one line; empty when nothing is.
std::string ProblemOf(const OptionRow& row, const std::vector<std::string>& values);

}  // namespace standin::cli
