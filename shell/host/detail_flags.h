// The bits of EXENTRY::flags that mark an entry as having details of a kind.
// The host keeps them in step with the details it stores; whoever holds a frame sets and
// clears them there as well, since a later save of that frame would otherwise undo them.
#pragma once

#include "shell/host/host_types.h"

namespace DetailFlag {
inline constexpr u32 kNoteMods = 0x00400000;  // accidental, notehead, note, percussion
inline constexpr u32 kArticulation = 0x00200000;
inline constexpr u32 kLyric = 0x00100000;
inline constexpr u32 kTuplet = 0x00080000;
inline constexpr u32 kBeamExtension = 0x00004000;
inline constexpr u32 kTieOrDotMods = 0x00001000;
inline constexpr u32 kPrimaryBeamBreak = 0x00000800;  // the flag is the whole detail
inline constexpr u32 kSecondaryBeamBreak = 0x00000400;
inline constexpr u32 kStemOrBeamMods = 0x00000080;
inline constexpr u32 kCrossStaff = 0x00000040;
inline constexpr u32 kSmartShape = 0x00000020;

// The flags that mark stored records; any other flag is the whole detail.
inline constexpr u32 kStored = 0
#define ENTRY_DETAIL(name, family, structure, tag, downTag, flag, ...) | flag
#define NOTE_DETAIL(name, structure, tag, flag, ...) | flag
#define SHAPE_DETAIL(name, structure, tag, flag, ...) | flag
#include "shell/host/entry_details.inc"
    ;

// Flags that are the whole detail, without a record.
inline constexpr u32 kFrozenStem = 0x00000100;
inline constexpr u32 kFrozenStemUp = 0x00000101;
inline constexpr u32 kFlagDetail1 = 0x00000010;
inline constexpr u32 kFlagDetail2 = 0x00000008;
}  // namespace DetailFlag
