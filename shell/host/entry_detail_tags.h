// The tags of the records attached to entries, named as the rows of entry_details.inc:
// EntryDetailTag::kArticulation. Of a record with a variant for stems down, that for stems up.
#pragma once

#include "shell/host/host_types.h"

namespace EntryDetailTag {
#define ENTRY_DETAIL(name, family, structure, tag, ...) inline constexpr u32 k##name = tag;
#define NOTE_DETAIL(name, structure, tag, ...) inline constexpr u32 k##name = tag;
#define SHAPE_DETAIL(name, structure, tag, ...) inline constexpr u32 k##name = tag;
#include "shell/host/entry_details.inc"
}  // namespace EntryDetailTag
