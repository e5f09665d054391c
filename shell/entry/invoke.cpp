#include "shell/entry/invoke.h"

#include <memory>

#include "Class Files/FinPIModeless.h"
#include "merge/Plyweld.h"
#include "platform/text.h"
#include "shell/entry/menu_items.h"
#include "shell/module/ModuleState.h"

i16 InvokeMenuItem(WindowHandle owner, u16 item, const EREGION* selection,
                   const EREGION* wholeDocument) {
    for (FinPIModeless* live = g_module.firstLive; live != nullptr; live = live->NextLive()) {
        if (live->ItemIndex() == item) {
            live->BringToFront();
            return 0;
        }
    }
    const std::string title =
        platform::Utf16ToMultiByte(PluginTitle(), platform::CodePage::kAnsi).value_or("");
    // The command owns itself from here on.
    auto command = std::make_unique<Plyweld>(owner, item, title);
    return command.release()->Start(selection, wholeDocument);
}
