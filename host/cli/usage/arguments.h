// The words of the command line, parsed with the table of options.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/cli/usage/option_table.h"

namespace standin::cli {

struct Arguments {
    const CommandRow* command = nullptr;  // null when none was named
    // The values of each given option; a flag has one value, which is ignored.
    std::map<OptionId, std::vector<std::string>> values;
    std::string problem;  // the error, in one line; empty if there is none

    bool Has(OptionId id) const { return values.contains(id); }
    // The last value given, else the initial one.
    std::string Value(OptionId id, std::string_view initial = {}) const;
};

// The words without the program's name. A misspelled word is reported before a missing argument.
// Required arguments and the forms of values are checked, unless help or the version is requested.
Arguments TakeApart(std::vector<std::string> words);

}  // namespace standin::cli
