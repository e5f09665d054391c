#include "host/musicxml/note_values.h"

#include <array>

namespace standin {
namespace {

// Each is twice as long as the previous one; the first lasts 4 units.
constexpr std::array<std::string_view, 15> kTypes{"",     "1024th", "512th", "256th",  "128th",
                                                  "64th", "32nd",   "16th",  "eighth", "quarter",
                                                  "half", "whole",  "breve", "long",   "maxima"};

constexpr NoteType kTypeCount = kTypes.size();

constexpr i32 kShortest = 4;

}  // namespace

NoteType NoteTypeOf(std::string_view name) noexcept {
    for (NoteType type = 1; type < kTypeCount; ++type) {
        if (kTypes[type] == name) {
            return type;
        }
    }
    return 0;
}

std::string_view NoteTypeName(NoteType type) noexcept {
    return type < kTypes.size() ? kTypes[type] : std::string_view{};
}

i32 NotatedLength(NoteType type, int dots) noexcept {
    if (type == 0) {
        return 0;
    }
    const i32 plain = kShortest << (type - 1);
    i32 length = plain;
    for (int dot = 1; dot <= dots && dot < 16; ++dot) {
        length += plain >> dot;
    }
    return length;
}

NoteValue ValueOfLength(i32 length) noexcept {
    for (NoteType type = 1; type < kTypeCount; ++type) {
        for (int dots = 0; dots <= 4; ++dots) {
            if (NotatedLength(type, dots) == length) {
                return {type, dots};
            }
        }
    }
    return {};
}

std::vector<i16> ValuesAddingUpTo(i32 length) {
    std::vector<i16> values;
    for (i32 value = 4 * kQuarterNote; value >= kShortest; value /= 2) {
        for (; length >= value; length -= value) {
            values.push_back(static_cast<i16>(value));
        }
    }
    return length == 0 ? values : std::vector<i16>{};
}

}  // namespace standin
