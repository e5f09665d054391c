// The document's clef preferences.
#pragma once

#include "Class Files/score/EnigmaRecords.h"
#include "Class Files/score/FinPIPseudoPref.h"

struct FinPIPseudoClefPrefs {
    u16 words0[5];
    i16 changePercent;  // the size of a clef change
    u16 words12[3];
};
static_assert(sizeof(FinPIPseudoClefPrefs) == 18);
static_assert(offsetof(FinPIPseudoClefPrefs, changePercent) == 10);

inline constexpr PseudoPrefWord kClefPrefsWords[] = {{0, 4},  {2, 6},   {4, 8},   {6, 10}, {8, 0},
                                                     {10, 2}, {12, 16}, {14, 12}, {16, 14}};

using FinPIClefPrefs =
    FinPIPseudoPrefTemplate<FinPIPseudoClefPrefs, ClefPrefsRecord, kClefPrefsWords>;
