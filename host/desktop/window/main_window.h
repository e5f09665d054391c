// The program's window: menu bar, grid, status bar, and the services the plug-in calls.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/desktop/dialogs/progress_window.h"
#include "host/desktop/dialogs/windows_dialogs.h"
#include "host/desktop/grid/grid_window.h"
#include "host/desktop/toolkit/message_pump.h"
#include "host/desktop/toolkit/windows_api.h"
#include "host/desktop/window/loaded_plugins.h"
#include "host/desktop/window/menu_bar.h"
#include "host/desktop/window/open_documents.h"

namespace standin::desktop {

class MainWindow {
public:
    // Throws when the system gives no window.
    explicit MainWindow(MenuBarKind menus);
    ~MainWindow();
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    // Starts Plyweld and the other plug-ins beside it and lists their items; shows a message if one
    // does not start.
    void StartPlugins();
    // Shows a message if it cannot be opened. False: not opened.
    bool Open(const std::filesystem::path& file);
    // Runs until the window is closed.
    int Run();

    HWND Window() const noexcept { return m_window; }
    GridWindow& Grid() noexcept { return *m_grid; }
    ProgressWindow& Progress() noexcept { return m_progress; }
    void CarryOut(u16 command);
    // The part of the status line that says what the measure holds or what the last run did.
    std::string StatusText() const;
    // After a change of the current document or its selection from outside.
    void ShowDocument();

    // Runs a routine in the window's thread and returns when it is done; from any thread.
    void InWindowThread(const std::function<void()>& routine) const;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM data);
    LRESULT Handle(UINT message, WPARAM word, LPARAM data);
    void CreateParts();
    void Arrange() const;
    void KeepDialogsInFront() const;

    bool CarryOutFile(u16 command);
    bool CarryOutEdit(u16 command);
    bool CarryOutView(u16 command);
    bool CarryOutHost(u16 command);
    void ChoosePluginItem(int item) const;
    void Save(bool askForName);
    void OpenDropped(HDROP files);
    bool CloseDocument(u16 document);
    bool CloseAll();
    void About() const;

    void AfterMessage();
    void ShowRun();
    void ShowAlert(const Alert& alert);
    void ShowStatus() const;
    void SetStatus(WPARAM part, const std::string& text) const;
    void ShowTitle() const;
    void ShowMessage(const std::wstring& text, UINT icon) const;

    MessagePump m_pump;
    OpenDocuments m_documents;
    std::unique_ptr<MenuBar> m_menus;
    std::unique_ptr<GridWindow> m_grid;
    HWND m_status = nullptr;
    std::optional<bool> m_runChanged;  // whether the run that has just ended changed the score
    std::string m_lastRun;             // until the selection changes or another command runs
    HWND m_window;  // receives messages during its creation, so it comes after the members it uses
    ProgressWindow m_progress;
    WindowsDialogs m_dialogs;
    LoadedPlugins m_plugins;
};

}  // namespace standin::desktop
