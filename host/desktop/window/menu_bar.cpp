#include "host/desktop/window/menu_bar.h"

#include <span>
#include <string>

#include "host/desktop/toolkit/wide_text.h"
#include "host/desktop/window/commands.h"

namespace standin::desktop {

namespace {

constexpr u16 kLine = 0;

struct Item {
    u16 command;  // or kLine
    Text text;
};

constexpr Item kFile[] = {{Command::kOpen, Text::kMenuOpen},
                          {Command::kSave, Text::kMenuSave},
                          {Command::kSaveAs, Text::kMenuSaveAs},
                          {Command::kClose, Text::kMenuClose},
                          {kLine, {}},
                          {Command::kExit, Text::kMenuExit}};
constexpr Item kEdit[] = {{Command::kUndo, Text::kMenuUndo},
                          {Command::kRedo, Text::kMenuRedo},
                          {kLine, {}},
                          {Command::kSelectAll, Text::kMenuSelectAll},
                          {Command::kSelectNone, Text::kMenuSelectNone}};
constexpr Item kSelection[] = {{Command::kWidenToMeasures, Text::kMenuMeasures},
                               {Command::kWidenToStaves, Text::kMenuStaves}};
constexpr Item kView[] = {{Command::kFirstLayer, Text::kMenuLayer1},
                          {Command::kFirstLayer + 1, Text::kMenuLayer2},
                          {Command::kFirstLayer + 2, Text::kMenuLayer3},
                          {Command::kFirstLayer + 3, Text::kMenuLayer4},
                          {kLine, {}},
                          {Command::kShowActiveLayerOnly, Text::kMenuActiveOnly},
                          {kLine, {}},
                          {Command::kPageView, Text::kMenuPage},
                          {Command::kScrollView, Text::kMenuScroll},
                          {Command::kStudioView, Text::kMenuStudio}};
constexpr Item kGo[] = {{Command::kFirstMeasure, Text::kMenuFirst},
                        {Command::kLastMeasure, Text::kMenuLast}};
constexpr Item kUtilities[] = {{Command::kClearLayer, Text::kMenuClearLayer},
                               {Command::kRebeam, Text::kMenuRebeam},
                               {Command::kUpdateLayout, Text::kMenuLayout}};
constexpr Item kWindow[] = {{Command::kNextDocument, Text::kMenuNextDocument}, {kLine, {}}};
constexpr Item kHelp[] = {{Command::kReading, Text::kMenuReading},
                          {Command::kAbout, Text::kMenuAbout}};

// Each menu of the bar has a number of its own, by which others may find it again.
constexpr u16 kFirstMenuNumber = 50;

HMENU AppendMenuOf(HMENU bar, Text title, std::span<const Item> items) {
    HMENU menu = CreatePopupMenu();
    for (const Item& item : items) {
        if (item.command == kLine) {
            AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        } else {
            AppendMenuW(menu, MF_STRING, item.command, WideText(item.text).c_str());
        }
    }
    const int position = GetMenuItemCount(bar);
    std::wstring text = WideText(title);
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_ID | MIIM_STRING | MIIM_SUBMENU;
    info.wID = kFirstMenuNumber + static_cast<UINT>(position);
    info.hSubMenu = menu;
    info.dwTypeData = text.data();
    InsertMenuItemW(bar, static_cast<UINT>(position), TRUE, &info);
    return menu;
}

void SetText(HMENU menu, u16 command, std::wstring text) {
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STRING;
    info.dwTypeData = text.data();
    SetMenuItemInfoW(menu, command, FALSE, &info);
}

// "Undo Plyweld 1-4"; "Undo" when there is nothing to undo.
std::wstring StepText(Text pattern, const std::vector<std::u16string>& texts) {
    std::wstring text = WideText(pattern, {texts.empty() ? "" : Utf8(Wide(texts.back()))});
    const std::size_t tab = text.find(L" \t");
    return tab == std::wstring::npos ? text : text.erase(tab, 1);
}

}  // namespace

MenuBar::MenuBar(HWND window, MenuBarKind kind) : m_bar{CreateMenu()} {
    const bool full = kind == MenuBarKind::kFull;
    AppendMenuOf(m_bar, Text::kMenuFile, kFile);
    AppendMenuOf(m_bar, Text::kMenuEdit, kEdit);
    if (full) {
        AppendMenuOf(m_bar, Text::kMenuSelection, kSelection);
    }
    AppendMenuOf(m_bar, Text::kMenuView, kView);
    if (full) {
        AppendMenuOf(m_bar, Text::kMenuGo, kGo);
        AppendMenuOf(m_bar, Text::kMenuUtilities, kUtilities);
    }
    m_plugins = AppendMenuOf(m_bar, Text::kMenuPlugins, {});
    m_window = AppendMenuOf(m_bar, Text::kMenuWindow, kWindow);
    m_windowItems = GetMenuItemCount(m_window);
    if (full) {
        AppendMenuOf(m_bar, Text::kMenuHelp, kHelp);
    }
    SetMenu(window, m_bar);
}

void MenuBar::ListPluginItems(const std::vector<cli::PluginItem>& items) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        AppendMenuW(m_plugins, MF_STRING, Command::kFirstPluginItem + i,
                    Wide(items[i].text).c_str());
    }
    if (items.empty()) {
        AppendMenuW(m_plugins, MF_STRING | MF_GRAYED, 0, WideText(Text::kMenuNoPlugins).c_str());
    }
}

void MenuBar::Enable(u16 command, bool enabled) const {
    EnableMenuItem(m_bar, command, MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
}

void MenuBar::Update(const LoadedPlugins& plugins, const OpenDocuments& documents) {
    const Document* document = App().CurrentDocument();
    const bool isOpen = document != nullptr;
    for (const u16 command :
         {Command::kSave, Command::kSaveAs, Command::kClose, Command::kSelectAll,
          Command::kFirstMeasure, Command::kLastMeasure, Command::kNextDocument,
          Command::kUpdateLayout, Command::kShowActiveLayerOnly}) {
        Enable(command, isOpen);
    }
    const bool isSelected = isOpen && document->selection;
    for (const u16 command : {Command::kSelectNone, Command::kWidenToMeasures,
                              Command::kWidenToStaves, Command::kClearLayer, Command::kRebeam}) {
        Enable(command, isSelected);
    }
    UpdateUndo();
    UpdateView();
    UpdatePlugins(plugins);
    UpdateDocuments(documents);
}

void MenuBar::UpdateUndo() {
    const Document* document = App().CurrentDocument();
    const auto undo = document != nullptr ? document->UndoTexts() : std::vector<std::u16string>{};
    const auto redo = document != nullptr ? document->RedoTexts() : std::vector<std::u16string>{};
    SetText(m_bar, Command::kUndo, StepText(Text::kMenuUndo, undo));
    SetText(m_bar, Command::kRedo, StepText(Text::kMenuRedo, redo));
    Enable(Command::kUndo, !undo.empty());
    Enable(Command::kRedo, !redo.empty());
}

void MenuBar::UpdateView() {
    const Application& app = App();
    CheckMenuRadioItem(m_bar, Command::kFirstLayer, Command::kFirstLayer + 3,
                       Command::kFirstLayer + static_cast<UINT>(app.activeLayer), MF_BYCOMMAND);
    CheckMenuRadioItem(m_bar, Command::kPageView, Command::kStudioView,
                       Command::kPageView + static_cast<UINT>(app.view), MF_BYCOMMAND);
    CheckMenuItem(m_bar, Command::kShowActiveLayerOnly,
                  app.ShowsActiveLayerOnly() ? MF_CHECKED : MF_UNCHECKED);
}

void MenuBar::UpdatePlugins(const LoadedPlugins& plugins) {
    for (int item = 0; item < static_cast<int>(plugins.Items().size()); ++item) {
        Enable(static_cast<u16>(Command::kFirstPluginItem + item), plugins.IsEnabled(item));
    }
}

void MenuBar::UpdateDocuments(const OpenDocuments& documents) {
    while (GetMenuItemCount(m_window) > m_windowItems) {
        DeleteMenu(m_window, static_cast<UINT>(m_windowItems), MF_BYPOSITION);
    }
    for (u16 number = App().NextDocument(0); number != 0; number = App().NextDocument(number)) {
        const UINT mark = number == App().CurrentNumber() ? MF_CHECKED : MF_UNCHECKED;
        AppendMenuW(m_window, MF_STRING | mark, Command::kFirstDocument + number,
                    documents.FileOf(number).filename().wstring().c_str());
    }
}

}  // namespace standin::desktop
