// The measures of a report page, before and after.
#pragma once

#include <string>
#include <vector>

#include "host/report/measure_pictures.h"
#include "host/report/merge_report.h"

namespace standin {

// A legend, a filter, and a card for each measure. pictures: one for each measure of the report.
std::string MeasureSection(const MergeReport& report, const std::vector<MeasurePictures>& pictures);

}  // namespace standin
