#include "host/desktop/window/menu_bar.h"

#include <span>
#include <string>

#include "host/desktop/toolkit/wide_text.h"
#include "host/desktop/window/commands.h"

namespace standin::desktop {

namespace {

struct Item {
    u16 command;  // 0 = a line
    const wchar_t* text;
};

constexpr Item kFile[] = {{Command::kOpen, L"&Open...\tCtrl+O"},
                          {Command::kSave, L"&Save\tCtrl+S"},
                          {Command::kSaveAs, L"Save &As..."},
                          {Command::kClose, L"&Close"},
                          {0, nullptr},
                          {Command::kExit, L"E&xit"}};
constexpr Item kEdit[] = {{Command::kUndo, L"&Undo"},
                          {Command::kRedo, L"&Redo"},
                          {0, nullptr},
                          {Command::kSelectAll, L"Select &All\tCtrl+A"},
                          {Command::kSelectNone, L"Select &Nothing\tEsc"}};
constexpr Item kSelection[] = {{Command::kWidenToMeasures, L"Whole &Measures"},
                               {Command::kWidenToStaves, L"All &Staves"}};
constexpr Item kView[] = {{Command::kFirstLayer, L"Layer &1"},
                          {Command::kFirstLayer + 1, L"Layer &2"},
                          {Command::kFirstLayer + 2, L"Layer &3"},
                          {Command::kFirstLayer + 3, L"Layer &4"},
                          {0, nullptr},
                          {Command::kShowActiveLayerOnly, L"Show Active Layer &Only"},
                          {0, nullptr},
                          {Command::kPageView, L"&Page View"},
                          {Command::kScrollView, L"&Scroll View"},
                          {Command::kStudioView, L"S&tudio View"}};
constexpr Item kGo[] = {{Command::kFirstMeasure, L"&First Measure\tHome"},
                        {Command::kLastMeasure, L"&Last Measure\tEnd"}};
constexpr Item kUtilities[] = {{Command::kClearLayer, L"&Clear Active Layer in Selection"},
                               {Command::kRebeam, L"&Rebeam Selection"},
                               {Command::kUpdateLayout, L"&Update Layout"}};
constexpr Item kWindow[] = {{Command::kNextDocument, L"&Next Document\tCtrl+F6"}, {0, nullptr}};
constexpr Item kHelp[] = {{Command::kAbout, L"&About"}};

// Each menu of the bar has a number of its own, by which others may find it again.
constexpr u16 kFirstMenuNumber = 50;

HMENU AppendMenuOf(HMENU bar, const wchar_t* title, std::span<const Item> items) {
    HMENU menu = CreatePopupMenu();
    for (const Item& item : items) {
        AppendMenuW(menu, item.command == 0 ? MF_SEPARATOR : MF_STRING, item.command, item.text);
    }
    const int position = GetMenuItemCount(bar);
    std::wstring text{title};
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

std::wstring StepText(const wchar_t* verb, const std::vector<std::u16string>& texts,
                      const wchar_t* key) {
    return verb + (texts.empty() ? std::wstring{} : L" " + Wide(texts.back())) + key;
}

}  // namespace

MenuBar::MenuBar(HWND window, MenuBarKind kind) : m_bar{CreateMenu()} {
    const bool full = kind == MenuBarKind::kFull;
    AppendMenuOf(m_bar, L"&File", kFile);
    AppendMenuOf(m_bar, L"&Edit", kEdit);
    if (full) {
        AppendMenuOf(m_bar, L"&Selection", kSelection);
    }
    AppendMenuOf(m_bar, L"&View", kView);
    if (full) {
        AppendMenuOf(m_bar, L"&Go", kGo);
        AppendMenuOf(m_bar, L"&Utilities", kUtilities);
    }
    m_plugins = AppendMenuOf(m_bar, L"&Plug-ins", {});
    m_window = AppendMenuOf(m_bar, L"&Window", kWindow);
    m_windowItems = GetMenuItemCount(m_window);
    if (full) {
        AppendMenuOf(m_bar, L"&Help", kHelp);
    }
    SetMenu(window, m_bar);
}

void MenuBar::ListPluginItems(const std::vector<cli::PluginItem>& items) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        AppendMenuW(m_plugins, MF_STRING, Command::kFirstPluginItem + i,
                    Wide(items[i].text).c_str());
    }
    if (items.empty()) {
        AppendMenuW(m_plugins, MF_STRING | MF_GRAYED, 0, L"(none)");
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
    SetText(m_bar, Command::kUndo, StepText(L"&Undo", undo, L"\tCtrl+Z"));
    SetText(m_bar, Command::kRedo, StepText(L"&Redo", redo, L"\tCtrl+Y"));
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
