// The plug-ins of the program: Plyweld, and what else lies beside it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/cli/commands/plugin.h"

namespace standin::desktop {

class LoadedPlugins {
public:
    // What could not be loaded, and why, a line each; empty when everything was.
    std::string Start(WindowHandle mainWindow);
    void End() { m_plugins.clear(); }

    // Items are counted from 0, through all plug-ins.
    std::vector<cli::PluginItem> Items() const;
    bool IsEnabled(int item) const;
    void Invoke(WindowHandle owner, int item, const EREGION* selection,
                const EREGION& wholeDocument) const;

private:
    // Makes the item one of the plug-in that it belongs to; null when there is none.
    const cli::Plugin* Find(int& item) const;

    std::vector<std::unique_ptr<cli::Plugin>> m_plugins;
};

}  // namespace standin::desktop
