// MusicXML output: the score's text, with the changed measures rewritten.
#pragma once

#include <string>

#include "host/musicxml/imported_score.h"

namespace standin {

struct WriteOptions {
    bool rebuildAll = false;  // rewrite every measure, changed or not
};

// The file's bytes, in the encoding and, for a .mxl, in the archive it came in. Measures unchanged
// since the import are copied byte for byte, except for the numbers of lines that changed music now
// overlaps in the text. Empty when the score cannot be written; problem then says why.
std::string WriteScore(const ImportedScore& score, WriteOptions options = {},
                       std::string* problem = nullptr);

}  // namespace standin
