#include "shell/entry/invoke.h"

#include "Class Files/LiveCommands.h"
#include "platform/text.h"
#include "shell/entry/menu_items.h"

i16 InvokeMenuItem(WindowHandle owner, u16 item, const EREGION* selection,
                   const EREGION* wholeDocument) {
    if (FinPIModeless* live = FindLiveCommand(item); live != nullptr) {
        live->BringToFront();
        return 0;
    }
    const CommandRow& row = CommandOf(item);
    const std::string title =
        platform::Utf16ToMultiByte(CommandTitle(row), platform::CodePage::kAnsi).value_or("");
    // The command owns itself from here on.
    return row.make(owner, item, title).release()->Start(selection, wholeDocument);
}
