// The report of a merge as a page for a browser, in the language of the user interface.
#pragma once

#include <string>
#include <vector>

#include "host/report/measure_pictures.h"
#include "host/report/merge_report.h"

namespace standin {

// The file of the engraver beside a page that does not hold it.
inline constexpr const char* kEngraverBeside = "plyweld-engraver.js";

// pictures: one for each measure of the report. engraver: the script of the engraver, or empty
// where it lies beside the page.
std::string ReportAsPage(const MergeReport& report, const ImportedScore& score,
                         const std::vector<MeasurePictures>& pictures, std::string_view engraver);

}  // namespace standin
