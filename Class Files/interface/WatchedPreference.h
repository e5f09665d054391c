// The general preference that open dialogs watch for changes.
#pragma once

#include "shell/host/host_types.h"

// Of the current document; 0 when it cannot be loaded.
u16 WatchedPreference();
