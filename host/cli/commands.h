// What the program does: one function a subcommand. Each returns the exit code, and has told
// the user what there is to tell.
#pragma once

#include "host/cli/command_line.h"

namespace standin::cli {

ExitCode Merge(const MergeCommand& command);
ExitCode MergeBatch(const BatchCommand& command);
ExitCode Show(const ShowCommand& command);
ExitCode CompareScores(const CompareCommand& command);
ExitCode Doctor();

}  // namespace standin::cli
