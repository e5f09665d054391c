// The plug-in, loaded from the program's folder and called through its six exports.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/system/machine.h"
#include "shell/host/host_functions.h"

namespace standin::cli {

struct PluginItem {
    std::u16string text;
    std::u16string description;
};

class Plugin {
public:
    // Loads and initializes a file, by default Plyweld's, and lists its menu items. Null if it is
    // missing, lacks an export, uses another version of the interface, refuses to start or offers
    // no command; problem then says which. Without a main window the timers that it starts run at
    // once.
    static std::unique_ptr<Plugin> Start(std::string& problem, WindowHandle mainWindow = nullptr,
                                         const std::string& file = {});
    // Terminates and unloads it.
    ~Plugin();
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    // As it listed them at its start: its commands, then its saved settings.
    const std::vector<PluginItem>& Items() const noexcept { return m_items; }
    bool IsEnabled(int item) const;
    // Chooses a menu item. The selection may be null.
    void Invoke(WindowHandle owner, int item, const EREGION* selection,
                const EREGION& wholeDocument) const;
    // The same for a command, with Shift held, so that no dialog comes up.
    void RunCommand(int item, const EREGION* selection, const EREGION& wholeDocument) const;

private:
    explicit Plugin(std::unique_ptr<machine::Library> library);
    // Each returns the error; empty on success.
    std::string FindExports();
    std::string Handshake(WindowHandle mainWindow);
    void ListItems(WindowHandle mainWindow);

    std::unique_ptr<machine::Library> m_library;
    FinaleExtensionVersionFunction* m_version = nullptr;
    FinaleExtensionInitFunction* m_init = nullptr;
    FinaleExtensionEnumerateFunction* m_enumerate = nullptr;
    FinaleExtensionGetMenuStatusFunction* m_menuStatus = nullptr;
    FinaleExtensionInvokeFunction* m_invoke = nullptr;
    FinaleExtensionTerminateFunction* m_terminate = nullptr;
    bool m_started = false;
    std::vector<PluginItem> m_items;
};

}  // namespace standin::cli
