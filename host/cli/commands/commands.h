// The program's subcommands, one function each. Each prints its messages and returns the exit code.
#pragma once

#include "host/cli/usage/command_line.h"

namespace standin::cli {

ExitCode Merge(const MergeCommand& command);
ExitCode MergeBatch(const BatchCommand& command);
ExitCode Show(const ShowCommand& command);
ExitCode RunPluginCommand(const PluginCommand& command);
ExitCode CompareScores(const CompareCommand& command);
ExitCode Doctor();

}  // namespace standin::cli
