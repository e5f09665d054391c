// The times that a host stores with entries, against the exact ones.
#pragma once

#include "probe/ExactClock.h"
#include "probe/Findings.h"
#include "shell/host/host_frames.h"

namespace probe {

class Details;

class EntryTimes {
public:
    // details: reads the tuplets of each entry on the way.
    void Look(EXFRAME& frame, Details& details);
    void Report(Findings& findings) const;

private:
    void Compare(const EXENTRY& entry, long double start, long double end, bool isInTuplet);

    Tally m_plain;
    Tally m_inTuplets;
    Tally m_graces;
    Tally m_frames;
    long double m_largestOffset = 0;
};

}  // namespace probe
