// The command objects that are alive, each with its dialog open or running without one.
#pragma once

#include "Class Files/FinPIModeless.h"
#include "shell/module/ModuleState.h"

// Whether the pointer still names an object; it may be one that has destroyed itself.
inline bool IsLive(const FinPIModeless* command) noexcept {
    const FinPIModeless* live = g_module.firstLive;
    while (live != nullptr && live != command) {
        live = live->NextLive();
    }
    return live != nullptr;
}

inline bool AnyIsRunning() noexcept {
    const FinPIModeless* live = g_module.firstLive;
    while (live != nullptr && !live->IsRunning()) {
        live = live->NextLive();
    }
    return live != nullptr;
}

// Null = none was made for this menu item.
inline FinPIModeless* FindLiveCommand(u16 item) noexcept {
    FinPIModeless* live = g_module.firstLive;
    while (live != nullptr && live->ItemIndex() != item) {
        live = live->NextLive();
    }
    return live;
}
