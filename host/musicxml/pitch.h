// Written pitches of the format, and the host's first note field.
#pragma once

#include <optional>

#include "shell/host/host_types.h"

namespace standin {

struct WrittenPitch {
    int step = 0;  // 0 = C to 6 = B
    int octave = 4;
    int alter = 0;  // semitones

    bool operator==(const WrittenPitch&) const = default;
};

// The host's field for a pitch in a key (-7 to 7 sharps): steps above the key's tonic in the octave
// from middle C, and the alteration of the key's own note. None if the key cannot express it.
std::optional<u16> PitchField(const WrittenPitch& pitch, int fifths) noexcept;

WrittenPitch PitchOfField(u16 field, int fifths) noexcept;

// The key's word in the measure record: the number of sharps in the low byte, signed.
u16 KeyWord(int fifths) noexcept;
int FifthsOfKeyWord(u16 key) noexcept;

}  // namespace standin
