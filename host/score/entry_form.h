// The form in which entries are stored, and the faults for which a frame is refused.
#pragma once

#include <span>

#include "shell/host/host_frames.h"

namespace standin {

// The stored form of an entry: a rest has no notes (its placeholder is dropped) and the mark
// of entries without notes; slots past the note count are zero; each note's flags carry the
// low bits of its ID. Times are left alone.
void ToStoredForm(EXENTRY& entry) noexcept;

// Why the entries cannot be stored, in a few words; null if they can. Counts and durations must be
// valid, exactly the entries flagged as notes must have notes, note IDs must be unique, nonzero and
// copied to the flags, entry numbers must differ, and voice 2 must follow its launching entry.
const char* WhyNotStorable(std::span<const EXENTRY> entries);

}  // namespace standin
