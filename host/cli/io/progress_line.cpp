#include "host/cli/io/progress_line.h"

#include <csignal>
#include <string>

#include "host/texts/texts.h"

namespace standin::cli {

namespace {

volatile std::sig_atomic_t g_interrupted = 0;

void OnInterrupt(int) {
    g_interrupted = 1;
}

}  // namespace

ProgressLine::ProgressLine(u16 lastMeasure) : m_lastMeasure{lastMeasure} {
    g_interrupted = 0;
    m_interruptBefore = std::signal(SIGINT, OnInterrupt);
    App().progressListener = [this](const ProgressReport& report) { return Report(report); };
}

ProgressLine::~ProgressLine() {
    App().progressListener = nullptr;
    std::signal(SIGINT, m_interruptBefore);
}

bool ProgressLine::Report(const ProgressReport& report) {
    if (report.measure > 0 && report.measure != m_shown) {
        m_shown = report.measure;
        m_line.Show(Say(Text::kMergingMeasure,
                        {std::to_string(report.measure), std::to_string(m_lastMeasure)}));
    }
    return g_interrupted == 0;
}

}  // namespace standin::cli
