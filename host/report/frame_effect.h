// What a merge did to one layer in one measure, counted from its entries before and after.
#pragma once

#include <vector>

#include "host/score/frame.h"

namespace standin {

struct FrameEffect {
    int chordsFormed = 0;  // entries that received notes
    int notesMoved = 0;    // noteheads that arrived, including those of chords
    int restsFilled = 0;   // rests replaced by music
    int notesGone = 0;     // noteheads of entries that are no longer there

    FrameEffect& operator+=(const FrameEffect& other) noexcept;
};

// Entries are the same if their numbers are.
FrameEffect EffectOn(const std::vector<EXENTRY>& before, const std::vector<EXENTRY>& now);

}  // namespace standin
