#include "host/musicxml/pitch.h"

#include <cstdlib>

namespace standin {
namespace {

constexpr int kLargestAlteration = 7;
constexpr int kLargestStep = 2047;

int Modulo7(int value) {
    return ((value % 7) + 7) % 7;
}

int TonicStep(int fifths) {
    return Modulo7(fifths * 4);
}

// The alteration of a step in a key: sharps from F upwards in fifths, flats from B downwards.
int KeyAlteration(int step, int fifths) {
    const int placeInFifths = Modulo7(step * 2 + 1);  // F 0, C 1, G 2, D 3, A 4, E 5, B 6
    return fifths >= 0 ? (fifths - placeInFifths + 6) / 7
                       : -((-fifths - (6 - placeInFifths) + 6) / 7);
}

}  // namespace

std::optional<u16> PitchField(const WrittenPitch& pitch, int fifths) noexcept {
    const int steps = pitch.step + 7 * (pitch.octave - 4) - TonicStep(fifths);
    const int alteration = pitch.alter - KeyAlteration(pitch.step, fifths);
    if (std::abs(steps) > kLargestStep || std::abs(alteration) > kLargestAlteration) {
        return std::nullopt;
    }
    const unsigned low = static_cast<unsigned>(std::abs(alteration)) | (alteration < 0 ? 8U : 0U);
    return static_cast<u16>((static_cast<unsigned>(steps) & 0xFFFU) << 4U | low);
}

WrittenPitch PitchOfField(u16 field, int fifths) noexcept {
    const int above = static_cast<i16>(field) / 16 - (static_cast<i16>(field) % 16 < 0 ? 1 : 0);
    const int steps = above + TonicStep(fifths);
    const int magnitude = field & 7;
    const int alteration = (field & 8) != 0 ? -magnitude : magnitude;
    WrittenPitch pitch;
    pitch.step = Modulo7(steps);
    pitch.octave = 4 + (steps - pitch.step) / 7;
    pitch.alter = alteration + KeyAlteration(pitch.step, fifths);
    return pitch;
}

u16 KeyWord(int fifths) noexcept {
    return static_cast<u16>(static_cast<unsigned>(fifths) & 0xFFU);
}

int FifthsOfKeyWord(u16 key) noexcept {
    return static_cast<i8>(key & 0xFFU);
}

}  // namespace standin
