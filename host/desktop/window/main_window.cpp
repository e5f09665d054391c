#include "host/desktop/window/main_window.h"

#include <algorithm>
#include <array>
#include <exception>
#include <system_error>

#include "host/desktop/grid/last_run.h"
#include "host/desktop/grid/measure_words.h"
#include "host/desktop/grid/selection_text.h"
#include "host/desktop/toolkit/program_messages.h"
#include "host/desktop/toolkit/wide_text.h"
#include "host/desktop/toolkit/window_class.h"
#include "host/desktop/toolkit/window_system.h"
#include "host/desktop/window/commands.h"
#include "platform/guarded.h"
#include "platform/resources.h"

namespace standin::desktop {

namespace {

constexpr wchar_t kClassName[] = L"PlyweldStandIn";
constexpr wchar_t kProgramName[] = L"Finale";
constexpr int kWidth = 1000;
constexpr int kHeight = 640;

HWND CreateMainWindow(WNDPROC procedure, void* object) {
    RegisterWindowClass(kClassName, procedure);
    HWND window =
        CreateWindowExW(0, kClassName, kProgramName, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 40, 40,
                        kWidth, kHeight, nullptr, nullptr, GetModuleHandleW(nullptr), object);
    if (window == nullptr) {
        throw std::system_error{static_cast<int>(GetLastError()), std::system_category(),
                                Say(Text::kNoWindow, {})};
    }
    return window;
}

HACCEL MakeAccelerators() {
    std::array<ACCEL, 5> keys{{{FVIRTKEY | FCONTROL, 'O', Command::kOpen},
                               {FVIRTKEY | FCONTROL, 'S', Command::kSave},
                               {FVIRTKEY | FCONTROL, 'Z', Command::kUndo},
                               {FVIRTKEY | FCONTROL, 'Y', Command::kRedo},
                               {FVIRTKEY | FCONTROL, 'A', Command::kSelectAll}}};
    return CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

}  // namespace

MainWindow::MainWindow(MenuBarKind menus)
    : m_window{CreateMainWindow(Procedure, this)},
      m_progress{m_pump, m_window},
      m_dialogs{m_pump, m_window} {
    m_menus = std::make_unique<MenuBar>(m_window, menus);
    CreateParts();
    m_pump.SetAccelerators(m_window, MakeAccelerators());
    m_pump.SetAfterMessage([this] { AfterMessage(); });
    App().dialogs = &m_dialogs;
    App().alertListener = [this](const Alert& alert) { ShowAlert(alert); };
    App().progressListener = [this](const ProgressReport& report) {
        return m_progress.Report(report);
    };
    App().editListener = [this](bool changed) { m_runChanged = changed; };
    m_dialogs.SetKeepClear([this] { return m_grid->SelectionOnScreen(); });
    DragAcceptFiles(m_window, TRUE);
    ShowDocument();
    ShowWindow(m_window, SW_SHOW);
}

MainWindow::~MainWindow() {
    m_dialogs.CloseAll();
    m_plugins.End();
    App().dialogs = nullptr;
    App().alertListener = nullptr;
    App().progressListener = nullptr;
    App().editListener = nullptr;
    DestroyWindow(m_window);
}

void MainWindow::CreateParts() {
    InitCommonControls();
    m_grid = std::make_unique<GridWindow>(m_window, [this] {
        m_lastRun.clear();
        ShowStatus();
    });
    m_status = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0,
                               0, 0, 0, m_window, nullptr, GetModuleHandleW(nullptr), nullptr);
    Arrange();
}

void MainWindow::Arrange() const {
    if (m_status == nullptr) {
        return;
    }
    SendMessageW(m_status, WM_SIZE, 0, 0);
    RECT client;
    RECT status;
    GetClientRect(m_window, &client);
    GetWindowRect(m_status, &status);
    const int height = client.bottom - (status.bottom - status.top);
    MoveWindow(m_grid->Window(), 0, 0, client.right, height, TRUE);
    const std::array<int, 2> edges{client.right * 2 / 5, -1};
    SendMessageW(m_status, SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
}

LRESULT CALLBACK MainWindow::Procedure(HWND window, UINT message, WPARAM word, LPARAM data) {
    auto* self = ObjectOf<MainWindow>(window, message, data);
    if (self == nullptr || self->m_status == nullptr) {
        return DefWindowProcW(window, message, word, data);
    }
    return platform::Guarded(LRESULT{0}, [&] {
        try {
            return self->Handle(message, word, data);
        } catch (const std::exception& problem) {
            self->ShowMessage(WideFromUtf8(problem.what()), MB_ICONERROR);
            return LRESULT{0};
        }
    });
}

LRESULT MainWindow::Handle(UINT message, WPARAM word, LPARAM data) {
    switch (message) {
        case WM_SIZE:
            Arrange();
            return 0;
        case WM_SETFOCUS:
            SetFocus(m_grid->Window());
            return 0;
        case WM_INITMENUPOPUP:
            m_menus->Update(m_plugins, m_documents);
            return 0;
        case WM_COMMAND:
            CarryOut(LOWORD(word));
            return 0;
        case WM_DROPFILES:
            OpenDropped(reinterpret_cast<HDROP>(word));
            return 0;
        case kWorkIsWaiting:
            AwaitWindowSystem();
            return HIWORD(GetQueueStatus(QS_INPUT | QS_PAINT)) != 0 ? 1 : 0;
        case WM_CLOSE:
            if (CloseAll()) {
                PostQuitMessage(0);
            }
            return 0;
        case kRunRoutine:
            (*reinterpret_cast<const std::function<void()>*>(data))();
            return 0;
        default:
            return DefWindowProcW(m_window, message, word, data);
    }
}

void MainWindow::StartPlugins() {
    const std::string problem = m_plugins.Start(m_window);
    m_menus->ListPluginItems(m_plugins.Items());
    DrawMenuBar(m_window);
    if (!problem.empty()) {
        ShowMessage(WideText(Text::kPluginNotLoaded, {problem}), MB_ICONWARNING);
    }
}

// Some window managers let a window that becomes active come before its own dialogs.
void MainWindow::KeepDialogsInFront() const {
    const std::vector<HWND>& dialogs = m_pump.Dialogs();
    if (dialogs.empty()) {
        return;
    }
    HWND below = GetWindow(m_window, GW_HWNDNEXT);
    while (below != nullptr) {
        HWND next = GetWindow(below, GW_HWNDNEXT);
        if (std::ranges::find(dialogs, below) != dialogs.end()) {
            SetWindowPos(below, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        }
        below = next;
    }
}

int MainWindow::Run() {
    return m_pump.Run();
}

void MainWindow::InWindowThread(const std::function<void()>& routine) const {
    SendMessageW(m_window, kRunRoutine, 0, reinterpret_cast<LPARAM>(&routine));
}

// Shows everything that the plug-in changed while it handled the message.
void MainWindow::AfterMessage() {
    KeepDialogsInFront();
    if (App().progressDisplays.empty()) {
        m_progress.Finish();
    }
    if (m_runChanged || !App().redrawn.empty()) {
        ShowRun();
        App().redrawn.clear();
        ShowDocument();
    }
}

// Puts what the run that has just ended did into the status bar.
void MainWindow::ShowRun() {
    const Document* document = App().CurrentDocument();
    if (m_runChanged && document != nullptr) {
        m_lastRun = *m_runChanged ? LastRunText(*document) : Say(Text::kRunChangedNothing, {});
    }
    m_runChanged.reset();
}

void MainWindow::ShowAlert(const Alert& alert) {
    m_progress.Finish();
    const std::u16string text =
        alert.stringId != 0 ? std::u16string{platform::ResourceString(alert.stringId)} : alert.text;
    HWND owner = IsWindow(alert.owner) != 0 ? alert.owner : GetLastActivePopup(m_window);
    MessageBoxW(owner, Wide(text).c_str(), kProgramName, MB_OK | MB_ICONEXCLAMATION | MB_TASKMODAL);
}

void MainWindow::ShowDocument() {
    m_grid->ShowDocument();
    ShowStatus();
    ShowTitle();
}

void MainWindow::ShowStatus() const {
    const Document* document = App().CurrentDocument();
    SendMessageW(m_status, SB_SIMPLE, document == nullptr ? TRUE : FALSE, 0);
    if (document == nullptr) {
        SetStatus(SB_SIMPLEID, Say(Text::kHowToBegin, {}));
        return;
    }
    std::string about = m_lastRun;
    const auto focus = m_grid->Focus();
    const ImportedScore* score = m_documents.ScoreOf(document->Number());
    if (about.empty() && score != nullptr && focus) {
        about = MeasureWords(*score, document->StaffInSlot(static_cast<i16>(focus->slot), 0),
                             static_cast<u16>(focus->measure));
    }
    SetStatus(0, SelectionText(*document));
    SetStatus(1, about);
}

std::string MainWindow::StatusText() const {
    std::wstring text(
        static_cast<std::size_t>(LOWORD(SendMessageW(m_status, SB_GETTEXTLENGTHW, 1, 0))), L'\0');
    SendMessageW(m_status, SB_GETTEXTW, 1, reinterpret_cast<LPARAM>(text.data()));
    return Utf8(text);
}

void MainWindow::SetStatus(WPARAM part, const std::string& text) const {
    SendMessageW(m_status, SB_SETTEXTW, part, reinterpret_cast<LPARAM>(WideFromUtf8(text).c_str()));
}

void MainWindow::ShowTitle() const {
    const u16 current = App().CurrentNumber();
    std::wstring title{kProgramName};
    if (current != 0) {
        const std::wstring name = m_documents.FileOf(current).filename().wstring();
        title += L" - ";
        title +=
            m_documents.IsChanged(current) ? WideText(Text::kChangedTitle, {Utf8(name)}) : name;
    }
    SetWindowTextW(m_window, title.c_str());
}

void MainWindow::ShowMessage(const std::wstring& text, UINT icon) const {
    MessageBoxW(m_window, text.c_str(), kProgramName, MB_OK | icon);
}

}  // namespace standin::desktop
