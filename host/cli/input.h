// Scores that the command line names.
#pragma once

#include <string>

#include "host/musicxml/read_score.h"

namespace standin::cli {

// Reads a file, or standard input for "-".
ReadResult ReadInput(const std::string& name, Document* into = nullptr);

// One line on standard error: the file, the line when one is to blame, what is wrong.
void ReportUnreadable(const std::string& name, const ReadResult& result);

}  // namespace standin::cli
