// Pieces that several sections of a report page have.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/report/merge_report.h"
#include "host/texts/texts.h"

namespace standin {

// A heading that the section around it is named for.
std::string SectionHeading(Text text, std::string_view id);

// What links lead to: "s1m12".
std::string IdOf(const MergedMeasure& measure);

// The layer's name (from 0) behind a dot of its color.
std::string LayerMark(u16 layer);

std::string Joined(const std::vector<std::string>& words, std::string_view between);

}  // namespace standin
