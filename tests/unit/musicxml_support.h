// Scores for tests, from a few characters.
#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/musicxml/music/compare.h"
#include "host/musicxml/read/read_score.h"
#include "host/musicxml/write/write_score.h"
#include "tests/unit/support/musicxml_text.h"
#include "tests/unit/support/notation.h"

namespace standin {

// A score read; the test ends when it is refused.
inline std::unique_ptr<ImportedScore> Read(std::string bytes) {
    ReadResult result = ReadScore(std::move(bytes));
    if (!result) {
        throw std::runtime_error{result.message + " (line " + std::to_string(result.line) + ")"};
    }
    return std::move(result.score);
}

// Every measure written anew.
inline std::string Rebuilt(const ImportedScore& score) {
    return WriteScore(score, {.rebuildAll = true});
}

inline std::string Layer(const ImportedScore& score, u16 staff, u16 measure, u16 layer) {
    return PrintLayer(*score.document, {staff, measure, layer});
}

// Of the first staff; none in a layer without a frame.
inline std::vector<EXENTRY> Entries(const ImportedScore& score, u16 measure, u16 layer) {
    const Frame* frame = score.document->FindFrame({1, measure, layer});
    return frame == nullptr ? std::vector<EXENTRY>{} : frame->entries;
}

inline CompareOptions Merged() {
    return {.merged = true, .replaced = {}};
}

// The differences between two scores, joined by line breaks.
inline std::string Differences(const ImportedScore& before, const ImportedScore& after,
                               const CompareOptions& options = {}) {
    std::string lines;
    for (const std::string& difference : Compare(MusicOf(before), MusicOf(after), options)) {
        lines += difference + '\n';
    }
    return lines;
}

}  // namespace standin
