// Operations of the merge on single entries. Positions and durations: duration units, positions
// from the barline in the measure's nominal duration.
#pragma once

#include <span>
#include <vector>

#include "Class Files/score/details/DetailKind.h"
#include "Class Files/score/frames/FinPIEntryPtr.h"

// The entries of a frame by their positions.
class EntriesByPosition {
public:
    explicit EntriesByPosition(const FinPITGFPtr& frame);

    const FinPITGFPtr& Frame() const noexcept { return m_frame; }
    // The indices of the entries at a position, in order.
    std::span<const i16> At(i32 position) const;

private:
    const FinPITGFPtr& m_frame;
    std::vector<i32> m_positions;  // in order
    std::vector<i16> m_indices;    // likewise
};

// The index of the frame's entry at a position with a grace offset (0 = no grace entry); the
// first of the voice asked for, else the first of the other voice. An offset of
// kAnyGraceOffset matches every entry at the position. -1 = none.
i16 FindCoincidentEntry(const EntriesByPosition& entries, i32 position, i32 graceOffset,
                        bool voice2);
inline constexpr i32 kAnyGraceOffset = 0x7FFFFFFF;

// Turns an entry in memory into a rest of this duration, hidden on request. It keeps its place in
// its voice, its grace flag and its tuplets.
void MakeRest(const FinPIEntryPtr& entry, i16 duration, bool hidden);

// Moves the attachments of the source entry with its music: the details of these kinds, which leave
// the source except for tuplets, and the ends of smart shapes. The target's notes must begin with
// the source's, because order decides among notes of one pitch. A failure leaves an error pending.
void MoveAttachments(const FinPIEntryPtr& source, const FinPIEntryPtr& target, u32 detailKinds);

// Moves only the ends of smart shapes. A failure leaves an error pending.
void MoveShapeEnds(const FinPIEntryPtr& source, const FinPIEntryPtr& target);

// The kinds of details that move with an entry's music.
inline constexpr u32 kMovedDetails =
    DetailKind::kArticulation | DetailKind::kLyric | DetailKind::kBeams | DetailKind::kStems |
    DetailKind::kFlagDetails | DetailKind::kNoteAlts | DetailKind::kOfNotes;
// The kinds copied to a chord formed from two entries, to an entry that replaces rests, and to a
// rest that only mirrors the source's rhythm.
inline constexpr u32 kChordDetails = kMovedDetails | DetailKind::kMatchNotesByPitch;
inline constexpr u32 kPlacedEntryDetails = kChordDetails | DetailKind::kTuplet;
inline constexpr u32 kMirroredRestDetails = DetailKind::kTuplet;
