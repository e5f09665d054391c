// The words of the command line, taken apart by the table of options.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/cli/option_table.h"

namespace standin::cli {

struct Arguments {
    const CommandRow* command = nullptr;  // null when none was named
    // Of each option that was given; a flag has one value, which does not matter.
    std::map<OptionId, std::vector<std::string>> values;
    std::string problem;  // what is wrong, in one line; empty when nothing is

    bool Has(OptionId id) const { return values.contains(id); }
    // The last value given, else the initial one.
    std::string Value(OptionId id, std::string_view initial = {}) const;
};

// The words without the program's name. A misspelt word counts before anything that is missing;
// required arguments and the forms of values are checked, unless help or the version is asked for.
Arguments TakeApart(std::vector<std::string> words);

}  // namespace standin::cli
