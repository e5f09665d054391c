// MusicXML in: partwise scores of versions 1.0 to 4.0, as .musicxml, .xml or .mxl.
//
// The music becomes frames and records of a host document; everything else keeps its place in
// the score's text. Voices of a staff become layers in order of first appearance; a further one
// takes a layer that is free in its measure or shares one that it has no time in common with.
#pragma once

#include <array>
#include <filesystem>
#include <memory>
#include <string>

#include "host/musicxml/imported_score.h"

namespace standin {

// Layers that only their own voices may take, from 0: those that a user has named, of which a
// further voice must be neither merged nor cleared.
using OwnLayers = std::array<bool, kLayers>;

struct ReadResult {
    std::unique_ptr<ImportedScore> score;  // null when refused
    std::string message;                   // one line on what is wrong; empty on success
    std::size_t line = 0;                  // in the XML, from 1; 0 when no line is to blame

    explicit operator bool() const noexcept { return score != nullptr; }
};

// Imports into the given empty document, or into one that the score owns when it is null.
// Refused files leave the document unfit for use. Never throws.
ReadResult ReadScore(std::string bytes, Document* into = nullptr, OwnLayers own = {});
ReadResult ReadScore(const std::filesystem::path& file, Document* into = nullptr,
                     OwnLayers own = {});

}  // namespace standin
