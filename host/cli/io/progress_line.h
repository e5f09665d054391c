// Shows the run's progress on standard error and lets the user stop it.
#pragma once

#include "host/cli/io/terminal.h"
#include "host/score/application.h"

namespace standin::cli {

// Shows the progress that the plug-in reports until the scope ends. Ctrl-C stops the run at the
// next report. Nothing is written if standard error is not a terminal.
class ProgressLine {
public:
    explicit ProgressLine(u16 lastMeasure);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

private:
    bool Report(const ProgressReport& report);

    u16 m_lastMeasure;
    StatusLine m_line;
    i16 m_shown = 0;
    void (*m_interruptBefore)(int);
};

}  // namespace standin::cli
