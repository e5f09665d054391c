// MusicXML in: partwise scores of versions 1.0 to 4.0, as .musicxml, .xml or .mxl.
//
// The music becomes frames and records of a host document; everything else keeps its place in
// the score's text. Voices of a staff become layers in order of first appearance.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "host/musicxml/imported_score.h"

namespace standin {

struct ReadResult {
    std::unique_ptr<ImportedScore> score;  // null when refused
    std::string message;                   // one line on what is wrong; empty on success
    std::size_t line = 0;                  // in the XML, from 1; 0 when no line is to blame

    explicit operator bool() const noexcept { return score != nullptr; }
};

// Imports into the given empty document, or into one that the score owns when it is null.
// Refused files leave the document unfit for use. Never throws.
ReadResult ReadScore(std::string bytes, Document* into = nullptr);
ReadResult ReadScore(const std::filesystem::path& file, Document* into = nullptr);

}  // namespace standin
