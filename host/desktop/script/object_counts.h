// Counts of the program's system objects, so that a script can find leaks.
#pragma once

#include <cstddef>
#include <string>

#include "host/desktop/toolkit/windows_api.h"

namespace standin::desktop {

struct ObjectCounts {
    int windows = 0;  // of the main window's thread, with the controls in them
    int menus = 0;
    int fonts = 0;
    int drawings = 0;          // drawing objects of all types
    int handles = 0;           // files, keys, threads, events
    std::size_t memory = 0;    // KiB that are the process's own
    std::size_t registry = 0;  // bytes of what the plug-in has stored
};

ObjectCounts CountObjects(HWND mainWindow);

// Describes the growth; empty if there is none. Windows, menus, fonts and stored bytes must be
// equal; the others vary a little with painting.
std::string Growth(const ObjectCounts& before, const ObjectCounts& now);

}  // namespace standin::desktop
