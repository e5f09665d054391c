// Where a smart shape starts and ends.
#pragma once

#include "Class Files/score/frames/FinPIEntryPtr.h"
#include "shell/host/host_records.h"

// Redirects the ends that are at one entry to another, in the copy that is held. False: no end
// was there.
bool MoveSmartShapeEnds(EDTSmartShape& shape, const FinPIEntryPtr& from, const FinPIEntryPtr& to);
