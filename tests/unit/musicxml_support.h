// Scores for tests, from a few characters.
#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/musicxml/read/read_score.h"
#include "host/musicxml/write/write_score.h"
#include "host/readback/compare/compare.h"
#include "host/readback/read/read_content.h"
#include "tests/unit/support/musicxml_text.h"
#include "tests/unit/support/notation.h"

namespace standin {

// Reads a score; the test ends if it is refused.
inline std::unique_ptr<ImportedScore> Read(std::string bytes) {
    ReadResult result = ReadScore(std::move(bytes));
    if (!result) {
        throw std::runtime_error{result.message + " (line " + std::to_string(result.line) + ")"};
    }
    return std::move(result.score);
}

// Every measure rewritten.
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

// The second reader's differences between a score and its output, joined by line breaks.
inline std::string Compared(const ImportedScore& before, const std::string& written, bool merged) {
    readback::Texts texts;
    const readback::Reading first = readback::ReadContentOfText(before.text, texts);
    const readback::Reading second = readback::ReadContent(written, texts);
    if (first.score == nullptr || second.score == nullptr) {
        return first.problem + second.problem + '\n';
    }
    std::string lines;
    for (const readback::Difference& difference :
         merged ? readback::FaultsOfMerge(*first.score, *second.score, texts)
                : readback::Differences(*first.score, *second.score, texts)) {
        lines += WordsFor(difference) + '\n';
    }
    return lines;
}

inline std::string Differences(const ImportedScore& before, const std::string& written) {
    return Compared(before, written, false);
}

inline std::string FaultsOfMerge(const ImportedScore& before, const std::string& written) {
    return Compared(before, written, true);
}

}  // namespace standin
