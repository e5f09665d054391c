// Which scores several inputs mean, and where each goes.
#pragma once

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

#include "host/cli/command_line.h"

namespace standin::cli {

struct BatchItem {
    std::filesystem::path input;
    std::filesystem::path output;  // empty when nothing is to be written
};

// The scores of the inputs in their order, each once; a folder's by name, below the output folder
// in the same folders. A text says what is wrong.
std::variant<std::vector<BatchItem>, std::string> ItemsOf(const BatchCommand& command);

}  // namespace standin::cli
