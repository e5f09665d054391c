#include "host/cli/progress_line.h"

#include <csignal>
#include <iostream>

#include "host/system/machine.h"

namespace standin::cli {

namespace {

volatile std::sig_atomic_t g_interrupted = 0;

void OnInterrupt(int) {
    g_interrupted = 1;
}

}  // namespace

ProgressLine::ProgressLine(u16 lastMeasure)
    : m_lastMeasure{lastMeasure}, m_visible{machine::ErrorsGoToTerminal()} {
    g_interrupted = 0;
    m_interruptBefore = std::signal(SIGINT, OnInterrupt);
    App().progressListener = [this](const ProgressReport& report) { return Report(report); };
}

ProgressLine::~ProgressLine() {
    App().progressListener = nullptr;
    std::signal(SIGINT, m_interruptBefore);
    if (m_shown != 0) {
        std::cerr << "\r\x1b[K" << std::flush;
    }
}

bool ProgressLine::Report(const ProgressReport& report) {
    if (m_visible && report.measure > 0 && report.measure != m_shown) {
        m_shown = report.measure;
        std::cerr << "\rMerging measure " << report.measure << " of " << m_lastMeasure
                  << std::flush;
    }
    return g_interrupted == 0;
}

}  // namespace standin::cli
