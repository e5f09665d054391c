// The text of a direction or another item, adapted to its new voice and lines.
#pragma once

#include <string>
#include <string_view>

#include "host/musicxml/imported_score.h"
#include "host/musicxml/write/lines/line_numbers.h"

namespace standin {

// voice: the one to name, as it is written; empty = as it was read.
std::string ItemText(const ImportedScore& score, const PartLines& lines, const MeasureItem& item,
                     const LineNumbers& numbers, std::string_view voice);

// A piece of the original text, with new numbers for lines that have them.
std::string WithNewNumbers(std::string_view text, std::size_t begin, std::size_t end,
                           const PartLines& lines, const LineNumbers& numbers);

}  // namespace standin
