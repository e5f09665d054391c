// The host's record load and save, as the record classes reach them: records that the host does
// not keep under their own tags are put together here.
#pragma once

#include "shell/host/host_types.h"

// FX_LoadEData. size in: the buffer's capacity; out: the record's size. The composite
// preferences are assembled from the host's option records, without a buffer only measured.
i16 LoadHostRecord(u32 tag, const void* key, void* data, u32* size, u32 version);

// FX_SaveEData. The composite preferences are written back to the option records that changed.
i16 SaveHostRecord(u32 tag, void* key, const void* data, u32 size, u32 version);
