// How the program uses the terminal: colors, and a line of progress.
#pragma once

#include <string>
#include <string_view>

#include "host/texts/paint.h"

namespace standin::cli {

// Forgets what an earlier command line chose.
void ResetTerminal();

// choice: "always", "never" or "auto", which means colors only on a terminal that shows them, and
// none if the environment variable NO_COLOR is set.
void ChooseColors(std::string_view choice);

// From here on no progress is shown.
void HideProgress();

Paint OutputPaint();
Paint ErrorPaint();

// A line on standard error that is overwritten, and gone when the object ends. Shows nothing if
// standard error is not a terminal, or one that cannot overwrite.
class StatusLine {
public:
    StatusLine();
    ~StatusLine() { Clear(); }
    StatusLine(const StatusLine&) = delete;
    StatusLine& operator=(const StatusLine&) = delete;

    void Show(const std::string& text);
    void Clear();  // before other text is written to the terminal

private:
    bool m_isVisible;
    bool m_isShown = false;
};

}  // namespace standin::cli
