// One run of rests replaced by the source entries that take exactly its time.
#pragma once

#include <set>

#include "merge/FramePair.h"
#include "merge/RestRun.h"
#include "merge/SourceSpan.h"

// False when replacing would break a tuplet of either frame, would lose what hangs on a rest,
// would put two second voices in one time, or would hide rests without music in their place.
// startTime: of the run, in the staff's units.
bool MayReplace(FramePair& frames, const RestRun& run, const SourceSpan& span, i32 startTime);

enum class Replacement {
    kDone,
    kRefused,  // the host kept the rests; both frames are as they were
    kFailed,   // an error is pending, and the edit must not be kept
};

// Adds to graceRests the numbers of source grace entries that became rests.
Replacement ReplaceRests(FramePair& frames, const RestRun& run, const SourceSpan& span,
                         std::set<u32>& graceRests);
