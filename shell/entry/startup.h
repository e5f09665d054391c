// What happens between the loading of the plug-in and its first command.
#pragma once

#include "shell/host/host_frames.h"

// Remembers the host's version; returns the interface version the plug-in will use.
u32 NegotiateVersion(u32 hostVersion) noexcept;

// 1 = loaded; 0 = the plug-in refuses, because its folder holds another plug-in's subfolders.
i16 Initialize(WindowHandle hostMainWindow, u32* flags);
