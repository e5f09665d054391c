// Help and the manual page, made from the table of options.
#pragma once

#include <string>

#include "host/cli/usage/option_table.h"

namespace standin::cli {

// An example invocation and its effect.
struct Example {
    std::string_view line;
    Text what{};
};

// The program's exit codes and their meanings.
struct ExitCodeRow {
    std::string_view code;
    Text meaning{};
};

std::span<const Example> Examples();
std::span<const ExitCodeRow> ExitCodes();

// Of the program.
std::string ProgramHelp();
std::string CommandHelp(const CommandRow& command);

// The name of the program with its version and those of its libraries.
std::string VersionText();

// In troff, for man.
std::string ManualPage();

}  // namespace standin::cli
