// The report of a merge for programs. docs/report.schema.json describes it.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "host/report/merge_report.h"

namespace standin {

// "otherDuration", as programs know it.
const char* NameOf(Stay reason);

nlohmann::ordered_json ReportAsJson(const MergeReport& report);
std::string ReportAsJsonText(const MergeReport& report);  // indented

}  // namespace standin
