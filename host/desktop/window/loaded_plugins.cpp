#include "host/desktop/window/loaded_plugins.h"

#include "host/cli/io/installation.h"

namespace standin::desktop {

std::string LoadedPlugins::Start(WindowHandle mainWindow) {
    std::string problems;
    for (const std::string& file : cli::PluginFiles()) {
        std::string problem;
        if (auto plugin = cli::Plugin::Start(problem, mainWindow, file)) {
            m_plugins.push_back(std::move(plugin));
        } else {
            problems.append(problems.empty() ? "" : "\n").append(problem);
        }
    }
    return problems;
}

std::vector<cli::PluginItem> LoadedPlugins::Items() const {
    std::vector<cli::PluginItem> items;
    for (const auto& plugin : m_plugins) {
        items.insert(items.end(), plugin->Items().begin(), plugin->Items().end());
    }
    return items;
}

const cli::Plugin* LoadedPlugins::Find(int& item) const {
    for (const auto& plugin : m_plugins) {
        const int count = static_cast<int>(plugin->Items().size());
        if (item < count) {
            return plugin.get();
        }
        item -= count;
    }
    return nullptr;
}

bool LoadedPlugins::IsEnabled(int item) const {
    const cli::Plugin* plugin = Find(item);
    return plugin != nullptr && plugin->IsEnabled(item);
}

void LoadedPlugins::Invoke(WindowHandle owner, int item, const EREGION* selection,
                           const EREGION& wholeDocument) const {
    if (const cli::Plugin* plugin = Find(item)) {
        plugin->Invoke(owner, item, selection, wholeDocument);
    }
}

}  // namespace standin::desktop
