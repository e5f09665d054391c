// Reads a MusicXML file for the checks.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/readback/score_content.h"
#include "host/readback/texts.h"

namespace standin::readback {

struct Reading {
    std::unique_ptr<Score> score;  // null when the file cannot be read
    std::string problem;           // one line on why not
    std::size_t line = 0;          // in the XML, from 1; 0 when no line is to blame
};

// Takes the bytes of a file: partwise MusicXML, plain or in an archive. Whatever is well-formed
// is read; values that make no sense count as missing. The archive and the encoding are undone by
// the same helpers as for every reading of a score, and nothing beyond that is shared.
Reading ReadContent(std::string bytes, Texts& texts);

// The same for XML in UTF-8.
Reading ReadContentOfText(std::string_view xml, Texts& texts);

}  // namespace standin::readback
