// MusicXML out: the score's text, with the measures whose music changed written anew.
#pragma once

#include <string>

#include "host/musicxml/imported_score.h"

namespace standin {

struct WriteOptions {
    bool rebuildAll = false;  // write every measure anew, changed or not
};

// The file's bytes, in the encoding and, for a .mxl, in the archive it came in. What did not
// change since the import comes out byte for byte, but for the numbers of lines that changed music
// now overlaps in the text. Empty when the score cannot be written; problem then says why.
std::string WriteScore(const ImportedScore& score, WriteOptions options = {},
                       std::string* problem = nullptr);

}  // namespace standin
