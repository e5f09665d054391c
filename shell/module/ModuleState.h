// What the loaded plug-in keeps between the host's calls: one instance for each loading of the
// library. Everything runs on the host's user-interface thread, so nothing here is locked.
#pragma once

#include "shell/host/host_types.h"

class FinPIModeless;

struct ModuleState {
    // As the host passed it to FinaleExtensionVersion, not clamped.
    u32 hostVersion = kInterfaceVersion;
    // Reaches the host's menu bar. Null before FinaleExtensionInit.
    WindowHandle hostMainWindow = nullptr;
    // Menu items found at initialization: the commands, and one for each saved setting.
    i16 itemCount = 0;
    // The commands have the items from 0 to this one.
    u16 lastCommandItem = 0;

    // The step that reshapes the host's menu: null unless armed, and the timer that runs it.
    void (*deferredMenuStep)() = nullptr;
    u64 deferredTimer = 0;
    u16 menuStepPending = 1;

    // The use-submenu flag of the first saved setting, and whether it has been read.
    u16 useSubmenu = 0;
    u16 useSubmenuRead = 0;

    // The newest live command object with a modeless dialog; each links to the one before it.
    FinPIModeless* firstLive = nullptr;
};

inline constinit ModuleState g_module;

// The host version that records and preferences are chosen by.
inline u32 HostVersion() noexcept {
    return g_module.hostVersion;
}
