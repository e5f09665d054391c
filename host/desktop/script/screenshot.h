// Pictures of the screen.
#pragma once

#include <filesystem>

#include "host/desktop/toolkit/windows_api.h"

namespace standin::desktop {

// Saves a part of the screen, in screen coordinates, as PNG. False: not written.
bool SaveScreenshot(RECT area, const std::filesystem::path& file);

}  // namespace standin::desktop
