// The stored content of one layer of a staff in a measure.
#pragma once

#include <array>
#include <cstring>
#include <vector>

#include "shell/host/host_frames.h"

namespace standin {

// The state of one beam level at an entry.
enum class Beam : u8 { kNone, kBegin, kContinue, kEnd, kForwardHook, kBackwardHook };

// The beam levels of one entry; index 0 is the eighth beam.
using BeamLevels = std::array<Beam, 8>;

struct Frame {
    // In playing order. Always in stored form: rests have no notes, slots past the note count
    // are zero, times are computed.
    std::vector<EXENTRY> entries;
    // One element per entry after the host has beamed the frame; empty while the beams are those of
    // the file, or none since the music changed.
    std::vector<BeamLevels> beams;
    bool needsRebeam = false;  // changed since it was last beamed

    bool BeamedByHost() const noexcept { return !beams.empty(); }
};

inline bool SameEntries(const std::vector<EXENTRY>& a, const std::vector<EXENTRY>& b) noexcept {
    return a.size() == b.size() &&
           (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(EXENTRY)) == 0);
}

// Compares music and beams, but not whether beaming is due.
inline bool operator==(const Frame& a, const Frame& b) noexcept {
    return SameEntries(a.entries, b.entries) && a.beams == b.beams;
}

// Bits of EXENTRY::flags that belong to this host; they are copied with the entry.
namespace HostEntryFlag {
inline constexpr u32 kFixedStem = 0x04000000;  // the stem's direction is set by hand
inline constexpr u32 kStemUp = 0x02000000;     // with kFixedStem: up; without: no meaning
}  // namespace HostEntryFlag

}  // namespace standin
