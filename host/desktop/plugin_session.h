// The plug-in as the desktop program drives it, through its six exports.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/cli/desktop.h"
#include "shell/host/host_functions.h"

namespace standin::desktop {

struct PluginItem {
    std::u16string text;
    std::u16string description;
};

class PluginSession {
public:
    // Loads the plug-in from beside the program and lists its menu items. Null when it is not
    // there, lacks an export or refuses to start; problem then says which.
    static std::unique_ptr<PluginSession> Start(WindowHandle mainWindow, std::string& problem);
    // Terminates and unloads it.
    ~PluginSession();
    PluginSession(const PluginSession&) = delete;
    PluginSession& operator=(const PluginSession&) = delete;

    const std::vector<PluginItem>& Items() const noexcept { return m_items; }
    bool IsEnabled(int item) const;
    // With the current document's selection.
    void Invoke(WindowHandle owner, int item) const;

private:
    explicit PluginSession(std::unique_ptr<cli::Library> library);
    std::string FindExports();  // empty, or what is wrong
    void ListItems(WindowHandle mainWindow);

    std::unique_ptr<cli::Library> m_library;
    FinaleExtensionVersionFunction* m_version = nullptr;
    FinaleExtensionInitFunction* m_init = nullptr;
    FinaleExtensionEnumerateFunction* m_enumerate = nullptr;
    FinaleExtensionGetMenuStatusFunction* m_menuStatus = nullptr;
    FinaleExtensionInvokeFunction* m_invoke = nullptr;
    FinaleExtensionTerminateFunction* m_terminate = nullptr;
    bool m_started = false;
    std::vector<PluginItem> m_items;
};

}  // namespace standin::desktop
