// What the program has of the system's objects, so that a script sees what is not given back.
#pragma once

#include <string>

#include "host/desktop/windows_api.h"

namespace standin::desktop {

// Windows of the main window's thread with the controls in them, menus and fonts, as text.
std::string ObjectCounts(HWND mainWindow);

}  // namespace standin::desktop
