// Preference records that are assembled from, and written back to, the host's option records:
// records of 12 bytes whose tags begin with "ot".
#pragma once

#include <span>

#include "shell/host/host_types.h"

// How a field follows from the words of its option record, beginning with the row's word i.
enum class PreferenceConversion : u16 {
    kPlain,      // 2 bytes: word[i] as it is
    kHighFirst,  // 4 bytes: word[i] is the high half, word[i + 1] the low one
    kLowFirst,   // 4 bytes: word[i] is the low half, word[i + 1] the high one
    kNot,        // 2 bytes: 1 when the word is 0, else 0; the same way back
    kLowByte,    // 2 bytes: the word's low byte; back sign-extended
};

struct PreferenceRow {
    u16 offset;      // of the field in the preference record, bytes
    char option[3];  // the last two characters of the option record's tag
    u16 inci;        // of the option record
    u16 word;        // 0 to 5, the field's first word in the option record
    PreferenceConversion conversion = PreferenceConversion::kPlain;
    u16 cmper = 0;  // of the option record; 0: 65534 for tags with a digit there, else 0

    constexpr bool IsLong() const noexcept {
        return conversion == PreferenceConversion::kHighFirst ||
               conversion == PreferenceConversion::kLowFirst;
    }
    constexpr u32 Size() const noexcept { return IsLong() ? 4 : 2; }
};

using PreferenceTable = std::span<const PreferenceRow>;

// The table of a tag; null when the record is not an assembled one.
const PreferenceTable* FindPreferenceTable(u32 tag) noexcept;

// Always 1. size in: the buffer's capacity; out: the record's size, all that is given without a
// buffer. Each option record is loaded once; fields of one that does not load hold 0.
i16 LoadAssembledPreference(PreferenceTable table, void* data, u32* size, u32 version);

// Saves each option record of which a field changed, and none that does not load. 0 without a
// buffer, when size is below twice the number of rows, or when the host refuses a save. 1 for
// an empty table.
i16 SaveAssembledPreference(PreferenceTable table, const void* data, u32 size, u32 version);
