// Kinds of entry details: the flag that tells of them, and whether they belong to a note.
#pragma once

#include "host/score/record_store.h"

namespace standin {

// 0 for tags that no flag tells of.
u32 DetailFlagOf(u32 tag) noexcept;

// Whether details of this tag begin with the ID of the note they belong to.
bool IsOfNote(u32 tag) noexcept;

// All flags that stand for stored details; the others that mark an entry are flags only.
u32 StoredDetailFlags() noexcept;

// The flags that the details on record ask for.
u32 DetailFlagsOf(u32 entry, const RecordStore& records);

}  // namespace standin
