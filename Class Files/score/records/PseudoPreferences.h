// The structures of the preferences that keep words of a host preference in an order of their
// own, and the words: byte offsets in the structure and in the host's record.
#pragma once

#include <cstddef>

#include "Class Files/score/records/FinPIPseudoPref.h"

struct FinPIPseudoBeamPrefs {
    u16 words0[6];
    u16 flags;  // bit 0 is the beaming flag
    u16 word14;

    static constexpr PseudoPrefWord kWords[] = {{0, 4},  {2, 6},   {4, 12}, {8, 0},
                                                {10, 8}, {12, 10}, {14, 2}};
};
static_assert(sizeof(FinPIPseudoBeamPrefs) == 16 && offsetof(FinPIPseudoBeamPrefs, flags) == 12);

struct FinPIPseudoClefPrefs {
    u16 words0[5];
    i16 changePercent;  // the size of a clef change
    u16 words12[3];

    static constexpr PseudoPrefWord kWords[] = {{0, 4},  {2, 6},   {4, 8},   {6, 10}, {8, 0},
                                                {10, 2}, {12, 16}, {14, 12}, {16, 14}};
};
static_assert(sizeof(FinPIPseudoClefPrefs) == 18);
static_assert(offsetof(FinPIPseudoClefPrefs, changePercent) == 10);

// The words before the tables of the host's record.
struct FinPIPseudoStemsPrefs {
    u16 words0[9];

    static constexpr PseudoPrefWord kWords[] = {{0, 0},   {2, 2},   {4, 4},   {6, 6},  {8, 8},
                                                {10, 10}, {12, 12}, {14, 14}, {16, 16}};
};
static_assert(sizeof(FinPIPseudoStemsPrefs) == 18);
