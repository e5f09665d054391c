// The report of a merge for a person, in the language of the user interface.
#pragma once

#include <string>

#include "host/report/merge_report.h"

namespace standin {

// Each line ends with a line break. A long list of music that stayed is cut unless details are
// wanted.
std::string ReportAsText(const MergeReport& report, bool withDetails);

// One line: what Replace cleared, "cleared: 163 notes in 12 measures of layer 1".
std::string ClearedLine(const MergeReport& report);

}  // namespace standin
