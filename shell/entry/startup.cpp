#include "shell/entry/startup.h"

#include <algorithm>

#include "Class Files/CommandTable.h"
#include "platform/guarded.h"
#include "platform/module.h"
#include "platform/timer.h"
#include "shell/entry/deferred_menu_step.h"
#include "shell/entry/folder_check.h"
#include "shell/entry/menu_items.h"
#include "shell/module/ModuleState.h"

namespace {

constexpr u32 kOldestInterface = 0x1A200000;
// From this host version on, the plug-in sets the first bit of the flags word.
constexpr u32 kFlagsHostVersion = 0x0C010000;
// The delay of the menu step after the host's return to its message loop.
constexpr u32 kMenuStepDelay = 10;  // milliseconds

void OnTimer(std::uintptr_t timer) noexcept {
    if (g_module.deferredMenuStep == nullptr) {
        return;
    }
    platform::StopThreadTimer(timer);
    platform::Guarded(false, [] {
        g_module.deferredMenuStep();
        return true;
    });
    g_module.deferredMenuStep = nullptr;
}

void ArmDeferredMenuStep() {
    const std::uintptr_t timer = platform::StartThreadTimer(kMenuStepDelay, OnTimer);
    if (timer != 0) {
        g_module.deferredTimer = timer;
        g_module.deferredMenuStep = DeferredMenuStep;
    }
}

// During each query the count equals the index; a prefix depends on it.
void CountMenuItems() {
    MenuItemDescriptor scratch{};
    g_module.itemCount = 0;
    while (DescribeMenuItem(g_module.itemCount, &scratch) != 0) {
        ++g_module.itemCount;
    }
}

}  // namespace

u32 NegotiateVersion(u32 hostVersion) noexcept {
    g_module.hostVersion = hostVersion;
    return std::clamp(hostVersion, kOldestInterface, kInterfaceVersion);
}

i16 Initialize(WindowHandle hostMainWindow, u32* flags) {
    g_module.hostMainWindow = hostMainWindow;
    if (g_module.hostVersion >= kFlagsHostVersion && flags != nullptr) {
        *flags |= 1U;
    }
    if (HoldsForeignFolder(platform::PluginFilePath())) {
        return 0;
    }
    g_module.lastCommandItem = static_cast<u16>(Commands().size() - 1);
    ArmDeferredMenuStep();
    CountMenuItems();
    return 1;
}
