// The kinds of entry details, one bit each, and sets of them.
#pragma once

#include "shell/host/host_types.h"

namespace DetailKind {
inline constexpr u32 kTuplet = 1U << 0U;
inline constexpr u32 kArticulation = 1U << 1U;
inline constexpr u32 kLyric = 1U << 3U;
inline constexpr u32 kPrimaryBeamBreak = 1U << 4U;
inline constexpr u32 kCrossStaff = 1U << 5U;
inline constexpr u32 kBeamAlt = 1U << 6U;
inline constexpr u32 kSecondaryBeamBreak = 1U << 8U;
inline constexpr u32 kBeamExtension = 1U << 9U;
inline constexpr u32 kStemAlt = 1U << 10U;
inline constexpr u32 kSecondStemAlt = 1U << 11U;
inline constexpr u32 kCustomStem = 1U << 12U;
inline constexpr u32 kBeamStubDirection = 1U << 13U;
inline constexpr u32 kFrozenStem = 1U << 14U;
inline constexpr u32 kFlagDetails = 1U << 15U;
inline constexpr u32 kEntryField6 = 1U << 16U;  // the entry record's field at offset 6
inline constexpr u32 kAccidentalMods = 1U << 17U;
inline constexpr u32 kNoteheadMods = 1U << 18U;
inline constexpr u32 kSmartShape = 1U << 19U;
inline constexpr u32 kTieStart = 1U << 20U;
inline constexpr u32 kTieEnd = 1U << 21U;
inline constexpr u32 kDotAlts = 1U << 23U;
inline constexpr u32 kLyricSmartShape = kLyric | 1U << 24U;  // selected by both bits
inline constexpr u32 kDuration = 1U << 26U;
inline constexpr u32 kPercNoteCode = 1U << 28U;
inline constexpr u32 kNoteAlts = 1U << 29U;

// Not a kind: details of a note go to the note with the same pitch instead of the same index in the
// chord. (Bit 22, of the tie kinds, has no effect.)
inline constexpr u32 kMatchNotesByPitch = 1U << 27U;

inline constexpr u32 kBeams =
    kPrimaryBeamBreak | kBeamAlt | kSecondaryBeamBreak | kBeamExtension | kBeamStubDirection;
inline constexpr u32 kStems = kStemAlt | kSecondStemAlt | kCustomStem | kFrozenStem;
inline constexpr u32 kOfNotes =
    kCrossStaff | kAccidentalMods | kNoteheadMods | kTieStart | kTieEnd | kDotAlts | kPercNoteCode;
}  // namespace DetailKind
