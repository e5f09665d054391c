// Compares the contents of two files and describes the differences.
#pragma once

#include <string>
#include <vector>

#include "host/readback/compare/difference.h"
#include "host/readback/score_content.h"
#include "host/readback/texts.h"

namespace standin::readback {

// Music that was cleared on purpose: one voice on one staff in a part of one measure.
struct ClearedMusic {
    u32 staff = 0;    // from 1 through the score
    u32 measure = 0;  // from 1, by place, not by printed number
    std::string voice;
    i64 first = 0;  // onsets in 1024ths of a quarter note from the barline, both included
    i64 last = 0;
};

// Sorted by measure, part, staff and beat; empty if there is none. Measures are named as in the
// first score.

// Whether two scores are the same music, whatever their voices and chords. Stems, beams and rests
// count.
std::vector<Difference> Differences(const Score& before, const Score& after, const Texts& texts);

// The faults of a merge: music lost or added, or written so that readers misread it. A merge may
// form chords, join equal marks of a chord, move notes to other voices, add and remove rests, and
// change stems and beams.
std::vector<Difference> FaultsOfMerge(const Score& before, const Score& after, const Texts& texts,
                                      const std::vector<ClearedMusic>& cleared = {});

}  // namespace standin::readback
