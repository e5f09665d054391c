// The report of a merge, for people and for programs.
#pragma once

#include <string>

#include "host/cli/stored_options.h"
#include "host/report/merge_report.h"

namespace standin::cli {

// Compares the score with its state at the import. Music of layers that were no source does
// not count as left behind.
MergeReport ReportRun(const ImportedScore& score, const EREGION& selection,
                      const MergeOptions& options);

// Both end with a line break. Verified: the result was compared and nothing was lost.
std::string ReportAsText(const MergeReport& report, bool verified);
std::string ReportAsJson(const MergeReport& report, bool verified);

}  // namespace standin::cli
