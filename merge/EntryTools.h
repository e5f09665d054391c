// What the merge asks of, and does to, single entries. Positions and durations: duration
// units, positions from the barline in the measure's nominal duration.
#pragma once

#include "Class Files/score/details/DetailKind.h"
#include "Class Files/score/frames/FinPIEntryPtr.h"

// The index of the frame's entry at a position with a grace offset (0 = no grace entry); the
// first of the voice asked for, else the first of the other voice. An offset of
// kAnyGraceOffset matches every entry at the position. -1 = none.
i16 FindCoincidentEntry(const FinPITGFPtr& frame, i32 position, i32 graceOffset, bool voice2);
inline constexpr i32 kAnyGraceOffset = 0x7FFFFFFF;

// Turns an entry, in memory, into a rest of this duration, hidden if asked. Its place in its
// voice, its grace flag and its tuplets stay.
void MakeRest(const FinPIEntryPtr& entry, i16 duration, bool hidden);

// Moves what hangs on the source entry along with its music: the details of these kinds, all
// of which but tuplets leave the source, and the ends of smart shapes. The target's notes begin
// with the source's: among notes of one pitch their places decide. A failure is left pending.
void MoveAttachments(const FinPIEntryPtr& source, const FinPIEntryPtr& target, u32 detailKinds);

// The second part of it alone. False: an end stayed behind, and an error is pending.
bool MoveShapeEnds(const FinPIEntryPtr& source, const FinPIEntryPtr& target);

// The kinds of details that leave an entry with its music.
inline constexpr u32 kMovedDetails =
    DetailKind::kArticulation | DetailKind::kLyric | DetailKind::kBeams | DetailKind::kStems |
    DetailKind::kFlagDetails | DetailKind::kNoteAlts | DetailKind::kOfNotes;
// Those that go onto a chord formed of two entries, onto an entry placed instead of rests, and
// onto a rest that only mirrors the source's rhythm.
inline constexpr u32 kChordDetails = kMovedDetails | DetailKind::kMatchNotesByPitch;
inline constexpr u32 kPlacedEntryDetails = kChordDetails | DetailKind::kTuplet;
inline constexpr u32 kMirroredRestDetails = DetailKind::kTuplet;
