// The text of a direction or another item, adapted to its new place and lines.
#pragma once

#include <string>
#include <string_view>

#include "host/musicxml/imported_score.h"
#include "host/musicxml/write/line_numbers.h"

namespace standin {

struct ItemChanges {
    std::string_view voice;  // as it is written; empty = as it was read
    Rational delay{};        // that the item belongs to a later time
    Rational divisions{};    // of a quarter note, where it is written
};

// Whether the item can be written before its time, with an <offset>.
bool CanBeDelayed(const ImportedScore& score, const MeasureItem& item);

std::string ItemText(const ImportedScore& score, const PartLines& lines, const MeasureItem& item,
                     const LineNumbers& numbers, const ItemChanges& changes);

// A piece of the original text, with new numbers for lines that have them.
std::string WithNewNumbers(std::string_view text, std::size_t begin, std::size_t end,
                           const PartLines& lines, const LineNumbers& numbers);

}  // namespace standin
