#include "shell/entry/deferred_menu_step.h"

#include <iterator>

#include "Class Files/interface/HostMenu.h"
#include "shell/entry/menu_items.h"
#include "shell/module/ModuleState.h"

namespace {

// The host lists no more of an item's text.
constexpr std::size_t kListedUnits = std::size(MenuItemDescriptor{}.text) - 1;

// All but the first command, which the submenu begins with.
void MoveItems(platform::Menu submenu) {
    const std::u16string prefix = VersionedPluginTitle() + u" ";
    for (i16 item = 1; item < g_module.itemCount; ++item) {
        if (item == g_module.lastCommandItem + 1) {
            platform::AppendMenuSeparator(submenu);
        }
        const std::u16string label = ItemLabel(item).substr(0, kListedUnits - prefix.size());
        if (!label.empty()) {
            MoveSettingItem(g_module.hostMainWindow, submenu, label, prefix);
        }
    }
}

}  // namespace

void DeferredMenuStep() {
    const bool pending = g_module.menuStepPending != 0;
    g_module.menuStepPending = 0;
    if (!pending || g_module.itemCount <= 1) {
        return;
    }
    const platform::Menu submenu = MakePluginSubmenu(g_module.hostMainWindow, PluginTitle(),
                                                     PluginTitle(), VersionedPluginTitle());
    if (submenu != nullptr) {
        MoveItems(submenu);
    }
}
