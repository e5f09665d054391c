// The scores of several inputs and their outputs.
#pragma once

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

#include "host/cli/usage/command_line.h"

namespace standin::cli {

struct BatchItem {
    std::filesystem::path input;
    std::filesystem::path output;  // empty when nothing is to be written
    std::filesystem::path page{};  // of its report, below the folder of the reports
    std::string problem{};         // why it cannot be merged, if that is known already
};

// The scores of the inputs in order, each once; a folder's scores by name, with the same subfolders
// below the output folder. A string is an error message.
std::variant<std::vector<BatchItem>, std::string> ItemsOf(const BatchCommand& command);

// What merges one of them in a run of this program of its own, on a host of the same manners.
std::vector<std::string> ArgumentsFor(const BatchItem& item,
                                      const std::vector<std::string>& options);

}  // namespace standin::cli
