// The program with its window: for a person, or for a script.
#pragma once

#include <string>
#include <vector>

namespace standin::desktop {

// Whether the arguments ask for the window rather than for a command: none at all, files to
// open, or "script [--pictures FOLDER] SCRIPT".
bool WantsWindow(const std::vector<std::string>& arguments);

// Returns the exit code: for a script, how many of its lines failed (at most 100), or 101 when
// it cannot be read.
int RunWindow(const std::vector<std::string>& arguments);

}  // namespace standin::desktop
