// Writing the report of a merge as a page.
#pragma once

#include <string>

#include "host/report/merge_report.h"

namespace standin::cli {

// Whether the name is that of a page; otherwise a folder is meant, in which each score's page is
// named for it.
bool IsPageName(const std::string& name);

// "reports/Score.mxl.html" of a folder and "scores/Score.mxl"; a page's name stays.
std::string PageFor(const std::string& report, const std::string& input);

// Why no page can be made, before anything is done; empty when nothing is in the way.
std::string WhyNoPage();

// The page of a merge that gave these bytes, at the place that --report names. Whole, or not at
// all. In a folder the engraver lies once beside all pages; a page by itself holds it. Returns what
// went wrong, with the file's name; empty when nothing did.
std::string WriteReportPage(const std::string& report, const MergeReport& merge,
                            const ImportedScore& score, std::string bytes);

}  // namespace standin::cli
