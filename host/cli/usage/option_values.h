// Parses the values of options.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/cli/usage/option_table.h"

namespace standin::cli {

// "5-12", "5-" or "5": a first number and perhaps a last one.
struct Range {
    int first = 1;
    std::optional<int> last;  // none: to the end
};

// Numbers from 1 to 32767. Nothing if the text is not such a range, or ends before it begins.
std::optional<Range> ParseRange(std::string_view text);

// "5-12", "#5-" or "1,3,7-9": ranges of measures, each with its first and last one.
struct MeasureStretch {
    std::string first;
    std::optional<std::string> last;  // none: to the end
};

// A measure is given by its printed number, or by "#" and its position from 1. Nothing if a measure
// is missing between the signs.
std::optional<std::vector<MeasureStretch>> ParseMeasures(std::string_view text);

// From 1 to 1000. Nothing if the text is not such a number.
std::optional<double> ParseBeat(std::string_view text);

// From 1 to 32767. Nothing if the text is not such a number.
std::optional<int> ParseCount(std::string_view text);

// The error in the values of an option, in one line; empty if there is none.
std::string ProblemOf(const OptionRow& row, const std::vector<std::string>& values);

}  // namespace standin::cli
