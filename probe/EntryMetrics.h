// Where entries are on their page, against what their frame says.
#pragma once

#include "probe/Findings.h"
#include "shell/host/host_frames.h"

namespace probe {

class EntryMetrics {
public:
    void Look(EXFRAME& frame);
    void Report(Findings& findings) const;

private:
    void LookAt(EXFRAME& frame, i16 index, i32& lastLeft, i32& lastStart);

    std::size_t m_written = 0;  // bytes; 0 = none came
    Tally m_hidden;
    Tally m_stems;
    Tally m_places;
    Tally m_results;  // of calls that gave metrics: not 0
};

}  // namespace probe
