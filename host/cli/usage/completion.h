// Completion of the command line in shells, made from the table of options.
#pragma once

#include <string>
#include <string_view>

namespace standin::cli {

// The script for "bash", "zsh" or "fish"; empty for any other shell.
std::string CompletionScript(std::string_view shell);

}  // namespace standin::cli
