// Music made up from a seed: the same seed gives the same score on every machine.
#pragma once

#include "tests/unit/support/written_score.h"

namespace standin {

// An attachment of an entry with notes.
struct DetailToWrite {
    u32 tag;    // 0 = flags alone
    u32 flags;  // of the entry
};
// Every kind, each once.
std::vector<DetailToWrite> DetailsToWrite();

// One to three staves and measures, up to eight layers, with grace notes, tuplets, second voices
// and every attachment of a note, with a random selection and random options.
WrittenScore MakeUpScore(u32 seed);

}  // namespace standin
