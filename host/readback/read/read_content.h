// Reads a MusicXML file for the checks.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/readback/score_content.h"
#include "host/readback/texts.h"

namespace standin::readback {

struct Reading {
    std::unique_ptr<Score> score;  // null if the file cannot be read
    std::string problem;           // the reason, in one line
    std::size_t line = 0;          // in the XML, from 1; 0 when no line is to blame
};

// Takes the bytes of a file: partwise MusicXML, plain or in an archive. Any well-formed file is
// read; invalid values count as missing. Unpacking and decoding are shared with the other reader,
// but nothing else.
Reading ReadContent(std::string bytes, Texts& texts);

// The same for XML in UTF-8.
Reading ReadContentOfText(std::string_view xml, Texts& texts);

// The same for a file that was made from another one, read before from the text xmlBefore.
// Measures that are there word for word are taken from that reading.
Reading ReadContentOfResult(const std::string& bytes, Texts& texts, const Score& before,
                            std::string_view xmlBefore);

}  // namespace standin::readback
