#include "host/desktop/dialogs/progress_window.h"

#include <algorithm>
#include <string>

#include "host/desktop/toolkit/wide_text.h"
#include "host/desktop/toolkit/window_class.h"
#include "platform/guarded.h"

namespace standin::desktop {

namespace {

constexpr wchar_t kClassName[] = L"PlyweldStandInProgress";
constexpr int kWidth = 360;
constexpr int kHeight = 150;
// Milliseconds.
constexpr ULONGLONG kMoment = 300;
constexpr ULONGLONG kBetweenLooks = 30;

// How much of the selection lies before a measure, in hundredths.
int Hundredths(i16 measure) {
    const Document* document = App().CurrentDocument();
    if (document == nullptr || !document->selection) {
        return 0;
    }
    const EREGION& region = *document->selection;
    const int count = std::max(region.endMeasure - region.startMeasure + 1, 1);
    return std::clamp((measure - region.startMeasure) * 100 / count, 0, 100);
}

std::wstring TextOf(const ProgressReport& report) {
    const Document* document = App().CurrentDocument();
    const std::string measure = std::to_string(report.measure);
    if (document == nullptr || report.staff == 0) {
        return WideText(Text::kProgressMeasure, {measure});
    }
    return WideText(Text::kProgressStaff,
                    {measure, Utf8(Wide(document->AutoNumberedName(report.staff)))});
}

}  // namespace

ProgressWindow::ProgressWindow(MessagePump& pump, HWND mainWindow)
    : m_pump{pump}, m_mainWindow{mainWindow} {
    RegisterWindowClass(kClassName, Procedure);
}

ProgressWindow::~ProgressWindow() {
    Finish();
}

LRESULT CALLBACK ProgressWindow::Procedure(HWND window, UINT message, WPARAM word, LPARAM data) {
    return platform::Guarded(LRESULT{0}, [&] {
        auto* self = ObjectOf<ProgressWindow>(window, message, data);
        const bool isCancel = message == WM_COMMAND && LOWORD(word) == IDCANCEL;
        if (self != nullptr && (isCancel || message == WM_CLOSE)) {
            self->m_stopped = true;
            return LRESULT{0};
        }
        return DefWindowProcW(window, message, word, data);
    });
}

void ProgressWindow::Open() {
    RECT main;
    GetWindowRect(m_mainWindow, &main);
    const int left = (main.left + main.right - kWidth) / 2;
    const int top = (main.top + main.bottom - kHeight) / 2;
    m_others.emplace();
    HINSTANCE program = GetModuleHandleW(nullptr);
    m_window = CreateWindowExW(WS_EX_DLGMODALFRAME, kClassName, WideText(Text::kWorking).c_str(),
                               WS_POPUP | WS_CAPTION | WS_SYSMENU, left, top, kWidth, kHeight,
                               m_mainWindow, nullptr, program, this);
    m_text = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | SS_NOPREFIX, 16, 14,
                             kWidth - 40, 18, m_window, nullptr, program, nullptr);
    m_bar = CreateWindowExW(0, PROGRESS_CLASSW, L"", WS_CHILD | WS_VISIBLE, 16, 38, kWidth - 40, 18,
                            m_window, nullptr, program, nullptr);
    HWND stop =
        CreateWindowExW(0, L"BUTTON", WideText(Text::kStop).c_str(),
                        WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON, (kWidth - 96) / 2,
                        72, 90, 26, m_window, reinterpret_cast<HMENU>(IDCANCEL), program, nullptr);
    const auto font = reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT));
    SendMessageW(m_text, WM_SETFONT, font, FALSE);
    SendMessageW(stop, WM_SETFONT, font, FALSE);
    m_pump.AddDialog(m_window);
    ShowWindow(m_window, SW_SHOW);
    SetFocus(stop);
}

void ProgressWindow::Show(const ProgressReport& report) {
    SetWindowTextW(m_text, TextOf(report).c_str());
    SendMessageW(m_bar, PBM_SETPOS, static_cast<WPARAM>(Hundredths(report.measure)), 0);
    UpdateWindow(m_window);
}

void ProgressWindow::Wait() {
    const ULONGLONG end = GetTickCount64() + m_delay;
    for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
        m_pump.RunWaiting();
    }
}

bool ProgressWindow::Report(const ProgressReport& report) {
    const ULONGLONG now = GetTickCount64();
    if (!m_started) {
        m_started = now;
        m_stopped = false;
    }
    if (m_window == nullptr && (now - *m_started >= kMoment || m_delay != 0)) {
        Open();
    }
    if (m_window != nullptr && (now - m_lastLook >= kBetweenLooks || m_delay != 0)) {
        m_lastLook = now;
        Show(report);
        Wait();
        m_stopped = !m_pump.RunWaiting() || m_stopped;
    }
    return !m_stopped;
}

void ProgressWindow::Finish() {
    m_started.reset();
    if (m_window == nullptr) {
        return;
    }
    m_pump.RemoveDialog(m_window);
    m_others.reset();
    DestroyWindow(m_window);
    m_window = nullptr;
}

}  // namespace standin::desktop
