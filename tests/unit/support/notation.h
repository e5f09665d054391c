// The notation of stand_in.h: text to entries and back.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/score/document.h"

namespace standin {

struct WrittenTuplet {
    std::size_t entry;  // the index of its first entry
    EDTTuplet2005 tuplet;
};

struct WrittenLayer {
    std::vector<EXENTRY> entries;  // without entry numbers
    std::vector<WrittenTuplet> tuplets;
};

// Throws std::invalid_argument when the text is not understood.
WrittenLayer ParseLayer(std::string_view notation);
std::string PrintLayer(const Document& document, FrameKey key);
// Onset and actual duration of each entry: "0+1024 1024+512".
std::string PrintTimes(const Document& document, FrameKey key);

}  // namespace standin
