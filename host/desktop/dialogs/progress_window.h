// Shows the plug-in's progress with a Stop button and blocks all other input.
#pragma once

#include <optional>

#include "host/desktop/toolkit/message_pump.h"
#include "host/desktop/toolkit/windows_api.h"
#include "host/desktop/toolkit/windows_disabled.h"
#include "host/score/application.h"

namespace standin::desktop {

class ProgressWindow {
public:
    ProgressWindow(MessagePump& pump, HWND mainWindow);
    ~ProgressWindow();
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;

    // One report of the plug-in. The window appears once a run takes more than a moment. False: the
    // user has pressed Stop.
    bool Report(const ProgressReport& report);
    // Closes the window; the next report begins a new run.
    void Finish();

    // Waits this long at each report, so that a short piece takes as long as a large one.
    void SlowDown(DWORD milliseconds) { m_delay = milliseconds; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM data);
    void Open();
    void Show(const ProgressReport& report);
    void Wait();

    MessagePump& m_pump;
    HWND m_mainWindow;
    HWND m_window = nullptr;
    HWND m_text = nullptr;
    HWND m_bar = nullptr;
    std::optional<WindowsDisabled> m_others;
    std::optional<ULONGLONG> m_started;
    ULONGLONG m_lastLook = 0;
    DWORD m_delay = 0;
    bool m_stopped = false;
};

}  // namespace standin::desktop
