// The actions of a script.
#pragma once

#include <string>
#include <vector>

#include "host/desktop/script/script_scene.h"

namespace standin::desktop {

// Executes one step. Empty on success, else the reason for the failure.
std::string TakeStep(ScriptScene& scene, const std::vector<std::string>& words);

}  // namespace standin::desktop
