// Where a smart shape starts and ends.
#pragma once

#include "Class Files/score/frames/FinPIEntryPtr.h"
#include "shell/host/host_records.h"

// Redirects the ends at one entry to another, in the copy held here. False: no end was at that
// entry.
bool MoveSmartShapeEnds(EDTSmartShape& shape, const FinPIEntryPtr& from, const FinPIEntryPtr& to);
