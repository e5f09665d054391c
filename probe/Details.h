// What is stored for an entry beside its frame, against what the entry says.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "probe/Findings.h"
#include "probe/Layouts.h"
#include "shell/host/host_frames.h"
#include "shell/host/host_records.h"

namespace probe {

class Details {
public:
    // Reads all details of an entry. Returns its tuplets in the order of their numbers.
    std::vector<EDTTuplet2005> Read(const EXENTRY& entry);
    void Report(Findings& findings) const;
    Layouts& Fields() noexcept { return m_layouts; }

private:
    struct Kind {
        Tally sizes;
        u64 lastWrongSize = 0;
    };

    std::map<std::string, Kind> m_kinds;  // by the name of the row
    // Fields of the kinds that have some.
    void LookAtFields(u32 tag, const std::vector<u8>& bytes, std::vector<EDTTuplet2005>& tuplets);

    Layouts m_layouts;
    Tally m_flags;
    Tally m_numbers;  // of entries with details: whether the numbers have no gaps
};

}  // namespace probe
