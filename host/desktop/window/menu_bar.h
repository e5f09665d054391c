// The main window's menu bar.
#pragma once

#include <vector>

#include "host/desktop/toolkit/windows_api.h"
#include "host/desktop/window/loaded_plugins.h"
#include "host/desktop/window/open_documents.h"

namespace standin::desktop {

// Full has nine menus with the plug-ins in the seventh; short has five with them in the fourth.
enum class MenuBarKind { kFull, kShort };

class MenuBar {
public:
    // Gives the window its menu bar. The window owns it.
    MenuBar(HWND window, MenuBarKind kind);

    void ListPluginItems(const std::vector<cli::PluginItem>& items);
    // Updates states, marks and the texts of undo, redo and the documents.
    void Update(const LoadedPlugins& plugins, const OpenDocuments& documents);

private:
    void UpdateUndo();
    void UpdateView();
    void UpdatePlugins(const LoadedPlugins& plugins);
    void UpdateDocuments(const OpenDocuments& documents);
    void Enable(u16 command, bool enabled) const;

    HMENU m_bar;
    HMENU m_plugins = nullptr;
    HMENU m_window = nullptr;
    int m_windowItems = 0;  // those before the documents
};

}  // namespace standin::desktop
