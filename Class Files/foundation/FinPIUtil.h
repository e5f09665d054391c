// The settings store: small binary values in the current user's part of the registry.
//
// A value is addressed by its owner (the plug-in key), a short name and a number. It is read from
// the layout in use or from either of two older ones; writing it puts it into the layout in use and
// clears the older copies. All names are 8-bit texts in the ANSI code page. Nothing is reported to
// the user; callers check results and post their own errors.
#pragma once

#include "shell/host/host_types.h"

// Size in bytes of the stored value; 0 = nothing found. With a buffer (size in bytes) its first
// size bytes are copied and what is left of the buffer is zeroed; null asks for the size only.
u32 ZKFX_GetSettings(const char* name, i16 number, void* buffer, u32 size, const char* pluginKey);

// 1 = written, 0 = not; size in bytes.
i16 ZKFX_PutSettings(const char* name, i16 number, const void* data, u32 size,
                     const char* pluginKey);

// A negative number deletes every value whose name begins with the name.
void ZKFX_DeleteSettings(const char* name, i16 number, const char* pluginKey);
