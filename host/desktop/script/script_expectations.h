// What a script expects to see.
#pragma once

#include <string>
#include <vector>

#include "host/desktop/script/script_scene.h"

namespace standin::desktop {

// Looks once. Empty when it is as expected, else what was found instead. The words follow
// "expect": what is looked at, where, and what is expected.
std::string CheckExpectation(ScriptScene& scene, const std::vector<std::string>& words);

}  // namespace standin::desktop
