// What the probe looks at. Each of these makes only calls that change nothing.
#pragma once

#include "probe/Findings.h"

namespace probe {

// What is known of the document before it is looked at.
struct Score {
    u16 document = 0;  // 0 = none is open, and there is little to look at
    i16 slots = 0;
    i16 measures = 0;
    i16 layers = 4;
    bool isSelected = false;
};
Score LookAtScore();

void MeasureExports(Findings& findings);
void MeasureSizes(Findings& findings, const Score& score);
void MeasureRecords(Findings& findings);
void MeasureCalls(Findings& findings, const Score& score);
// Every frame up to a number of entries, with what is attached to them. Returns how many.
u64 MeasureFrames(Findings& findings, const Score& score);
// A line for each callback that nothing was found about.
void NameUnmeasured(Findings& findings);

}  // namespace probe
