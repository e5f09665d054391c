// The expectations of a script.
#pragma once

#include <string>
#include <vector>

#include "host/desktop/script/script_scene.h"

namespace standin::desktop {

// Checks once. Empty if the expectation is met, else what was found instead. The words follow
// "expect": the kind of thing, its place, and the expected value.
std::string CheckExpectation(ScriptScene& scene, const std::vector<std::string>& words);

}  // namespace standin::desktop
