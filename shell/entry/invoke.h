// Running the command of a menu item.
#pragma once

#include "shell/host/host_frames.h"

// Brings the dialog of a live command of the same item to the front, or runs a new command.
// selection is null when nothing is selected. Returns the command's result.
i16 InvokeMenuItem(WindowHandle owner, u16 item, const EREGION* selection,
                   const EREGION* wholeDocument);
