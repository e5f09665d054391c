#include "host/cli/io/terminal.h"

#include <cstdlib>
#include <iostream>

#include "host/system/machine.h"

namespace standin::cli {

namespace {

enum class Colors { kAuto, kAlways, kNever };

Colors g_colors = Colors::kAuto;
bool g_hidesProgress = false;

bool WantsColors(bool goesToTerminal) {
    if (g_colors != Colors::kAuto) {
        return g_colors == Colors::kAlways;
    }
    const char* noColor = std::getenv("NO_COLOR");
    const bool isForbidden = noColor != nullptr && *noColor != '\0';
    return goesToTerminal && !isForbidden && machine::TerminalTakesCodes();
}

}  // namespace

void ResetTerminal() {
    g_colors = Colors::kAuto;
    g_hidesProgress = false;
}

void ChooseColors(std::string_view choice) {
    g_colors = choice == "always"  ? Colors::kAlways
               : choice == "never" ? Colors::kNever
                                   : Colors::kAuto;
}

void HideProgress() {
    g_hidesProgress = true;
}

Paint OutputPaint() {
    return Paint{WantsColors(machine::OutputGoesToTerminal())};
}

Paint ErrorPaint() {
    return Paint{WantsColors(machine::ErrorsGoToTerminal())};
}

StatusLine::StatusLine()
    : m_isVisible{!g_hidesProgress && machine::ErrorsGoToTerminal() &&
                  machine::TerminalTakesCodes()} {}

void StatusLine::Show(const std::string& text) {
    if (m_isVisible) {
        m_isShown = true;
        std::cerr << "\r\x1b[K" << text << std::flush;
    }
}

void StatusLine::Clear() {
    if (m_isShown) {
        m_isShown = false;
        std::cerr << "\r\x1b[K" << std::flush;
    }
}

}  // namespace standin::cli
