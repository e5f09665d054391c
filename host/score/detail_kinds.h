// Which flag of an entry tells that it has details of a tag.
#pragma once

#include "host/score/record_store.h"

namespace standin {

// 0 for tags that no flag tells of.
u32 DetailFlagOf(u32 tag) noexcept;

// All flags that stand for stored details; the others that mark an entry are flags only.
u32 StoredDetailFlags() noexcept;

// The flags that the details on record ask for.
u32 DetailFlagsOf(u32 entry, const RecordStore& records);

}  // namespace standin
