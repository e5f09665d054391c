// Note types of the format ("quarter", "16th") and their lengths in the host's units.
#pragma once

#include <string_view>
#include <vector>

#include "shell/host/host_types.h"

namespace standin {

// An index into the table of note types, shortest first; 0 = no type given.
using NoteType = u8;

NoteType NoteTypeOf(std::string_view name) noexcept;  // 0 if it is not a type
std::string_view NoteTypeName(NoteType type) noexcept;

// The notated length; 0 without a type. A maxima exceeds the range of an entry's duration.
i32 NotatedLength(NoteType type, int dots) noexcept;

struct NoteValue {
    NoteType type = 0;
    int dots = 0;
};

// The type and dots (up to four) with exactly that length; type 0 when there are none.
NoteValue ValueOfLength(i32 length) noexcept;

// Lengths of note values without dots that add up to the length, the longest first, none longer
// than a whole note; empty when there are none.
std::vector<i16> ValuesAddingUpTo(i32 length);

}  // namespace standin
