// Which entries of a frame share a beam.
#pragma once

#include <vector>

#include "host/score/frame.h"
#include "host/score/records/record_store.h"
#include "shell/host/host_records.h"

namespace standin {

// The beams of each entry, as the time signature groups them: by beat; three eighths where the
// beats are eighths in threes; plain eighths by half measures in 4/4. Rests of an eighth and
// longer, hidden entries and primary beam breaks end a beam; secondary beam breaks end all but the
// first. A beam contains a whole tuplet or lies within it; otherwise it ends where the tuplet
// begins or ends. Grace notes that follow each other are beamed among themselves.
std::vector<BeamLevels> ComputeBeams(const std::vector<EXENTRY>& entries,
                                     const EDTMeasureSpec2014& measure, const RecordStore& records);

}  // namespace standin
