// The document's beam preferences.
#pragma once

#include "Class Files/score/EnigmaRecords.h"
#include "Class Files/score/FinPIPseudoPref.h"

struct FinPIPseudoBeamPrefs {
    u16 words0[6];
    u16 flags;  // bit 0 is the beaming flag
    u16 word14;
};
static_assert(sizeof(FinPIPseudoBeamPrefs) == 16 && offsetof(FinPIPseudoBeamPrefs, flags) == 12);

inline constexpr PseudoPrefWord kBeamPrefsWords[] = {{0, 4},  {2, 6},   {4, 12}, {8, 0},
                                                     {10, 8}, {12, 10}, {14, 2}};

using FinPIBeamPrefs =
    FinPIPseudoPrefTemplate<FinPIPseudoBeamPrefs, BeamPrefsRecord, kBeamPrefsWords>;
