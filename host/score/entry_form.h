// The form in which entries are stored, and what makes a frame unfit to be stored.
#pragma once

#include <span>

#include "shell/host/host_frames.h"

namespace standin {

// The stored form of an entry: a rest has no notes (its placeholder is dropped) and the mark
// of entries without notes; slots past the note count are zero; each note's flags carry the
// low bits of its ID. Times are left alone.
void ToStoredForm(EXENTRY& entry) noexcept;

// Why the entries cannot be stored, in a few words; null when they can. Wants sane counts and
// durations, notes exactly on entries flagged as notes, note IDs that are unique and nonzero
// with their copies in the flags, different entry numbers, and voice 2 only behind its launcher.
const char* WhyNotStorable(std::span<const EXENTRY> entries);

}  // namespace standin
