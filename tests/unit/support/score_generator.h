// Music made up from a seed: the same seed gives the same score on every machine.
#pragma once

#include "tests/unit/support/written_score.h"

namespace standin {

// Something that can hang on an entry with notes.
struct DetailToWrite {
    u32 tag;    // 0 = flags alone
    u32 flags;  // of the entry
};
// Every kind, each once.
std::vector<DetailToWrite> DetailsToWrite();

// One to three staves and measures, up to eight layers, with grace notes, tuplets, second voices
// and all that can hang on a note, selected somehow, and how to merge it.
WrittenScore MakeUpScore(u32 seed);

}  // namespace standin
