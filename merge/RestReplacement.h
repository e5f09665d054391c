// One run of rests replaced by the source entries that take exactly its time.
#pragma once

#include <set>

#include "merge/FramePair.h"
#include "merge/RestRun.h"
#include "merge/SourceSpan.h"

// False when replacing would break a tuplet of either frame, lose details of a rest, make two
// second voices overlap, or hide rests without putting music in their place.
// startTime: start of the run, in the staff's duration units.
bool MayReplace(FramePair& frames, const RestRun& run, const SourceSpan& span, i32 startTime);

enum class Replacement {
    kDone,
    kRefused,  // the host did not replace the rests; both frames are unchanged
    kFailed,   // an error is pending, and the edit must be rolled back
};

// Adds to graceRests the numbers of source grace entries that became rests.
Replacement ReplaceRests(FramePair& frames, const RestRun& run, const SourceSpan& span,
                         std::set<u32>& graceRests);
