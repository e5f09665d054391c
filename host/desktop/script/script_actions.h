// What a script does.
#pragma once

#include <string>
#include <vector>

#include "host/desktop/script/script_scene.h"

namespace standin::desktop {

// Does one step. Empty when it was done, else what stood in the way.
std::string TakeStep(ScriptScene& scene, const std::vector<std::string>& words);

}  // namespace standin::desktop
