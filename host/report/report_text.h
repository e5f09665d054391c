// The report of a merge for a person, in the language of the user interface.
#pragma once

#include <string>

#include "host/report/merge_report.h"
#include "host/texts/paint.h"

namespace standin {

// Each line ends with a line break. A long list of music that stayed is cut unless details are
// wanted.
std::string ReportAsText(const MergeReport& report, bool withDetails, const Paint& paint);

// The lines, each behind the indent; without details only the first ones and how many more there
// are.
std::string ListOf(const std::vector<std::string>& lines, const std::string& indent,
                   bool withDetails);

// One line: what Replace cleared, "cleared: 163 notes in 12 measures of layer 1".
std::string ClearedLine(const MergeReport& report);

}  // namespace standin
