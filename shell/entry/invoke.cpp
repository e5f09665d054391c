#include "shell/entry/invoke.h"

#include <memory>

#include "Class Files/LiveCommands.h"
#include "merge/Plyweld.h"
#include "platform/text.h"
#include "shell/entry/menu_items.h"

i16 InvokeMenuItem(WindowHandle owner, u16 item, const EREGION* selection,
                   const EREGION* wholeDocument) {
    if (FinPIModeless* live = FindLiveCommand(item); live != nullptr) {
        live->BringToFront();
        return 0;
    }
    const std::string title =
        platform::Utf16ToMultiByte(PluginTitle(), platform::CodePage::kAnsi).value_or("");
    // The command owns itself from here on.
    auto command = std::make_unique<Plyweld>(owner, item, title);
    return command.release()->Start(selection, wholeDocument);
}
