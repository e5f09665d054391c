// Plays a script against the running program in a separate thread and reports each line.
#pragma once

#include <vector>

#include "host/desktop/script/script_scene.h"

namespace standin::desktop {

// Writes a line for each step to standard output: "ok" or "FAILED", and why. A step that cannot
// be done ends the script; an expectation that is not met within a few seconds does not.
// Returns how many failed.
int PlayScript(ScriptScene scene, const std::vector<ScriptLine>& lines);

}  // namespace standin::desktop
