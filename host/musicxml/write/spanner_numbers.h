// Numbers for spanners that a change brought into the way of others of the same number.
#pragma once

#include <set>
#include <utility>

#include "host/musicxml/write/note_writer.h"

namespace standin {

// New numbers for moved spanners that overlap another one of their part, name and number. The
// staves and measures of their ends are added to those to be written.
SpannerNumbers ChooseSpannerNumbers(const ImportedScore& score,
                                    std::set<std::pair<u16, u16>>& changed);

}  // namespace standin
