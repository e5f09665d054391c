// What a merge was asked for, in words.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/report/merge_report.h"

namespace standin {

// "Score.mxl" of "scores/Score.mxl"
std::string FileName(const std::string& path);

// Pairs such as "Measures" and "5-12".
std::vector<std::pair<std::string, std::string>> AskedWords(const MergeReport& report,
                                                            const ImportedScore& score);

}  // namespace standin
