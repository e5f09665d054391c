// Kinds of entry details, from shell/host/entry_details.inc: the flag that marks their entry, and
// whether they belong to a note.
#pragma once

#include <span>

#include "host/score/records/record_store.h"

namespace standin {

struct DetailKindRow {
    u32 tag;
    u32 downTag;   // the variant for stems down; 0 = none
    u32 flag;      // of the entry
    u32 noteFlag;  // of a note's: only notes with it have such details; 0 = all can
    bool isOfNote;
    bool isShapeMark;
};

// The kinds with stored records.
std::span<const DetailKindRow> DetailKinds() noexcept;

// By either tag of the kind; null for other tags.
const DetailKindRow* FindDetailKind(u32 tag) noexcept;

// The flag that marks an entry with details of this tag; 0 for tags that no flag marks.
u32 DetailFlagOf(u32 tag) noexcept;

// Whether details of this tag begin with the ID of the note they belong to.
bool IsOfNote(u32 tag) noexcept;

// The flags that match the stored details.
u32 DetailFlagsOf(u32 entry, const RecordStore& records);

}  // namespace standin
