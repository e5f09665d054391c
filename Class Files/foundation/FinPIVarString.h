// A growable UTF-8 text. Everything after its first NUL in the buffer is zero.
#pragma once

#include <cstdarg>

#include "Class Files/foundation/FinPIVarLenStruct.h"

// The size of the longest string read from the string table, including its terminator.
inline constexpr u32 kResourceUnits = 4096;

class FinPIVarString : public FinPIVarLenStruct<char> {
public:
    FinPIVarString() noexcept = default;
    // printf-style; a format that cannot be formatted gives the empty text.
    explicit FinPIVarString(const char* format, ...);

    // The same with a va_list. Not a constructor, because where va_list is a pointer, any pointer
    // to characters would match.
    void SetFormatted(const char* format, va_list arguments);
    // The buffer, sized to the text and its terminator; null empties the text and gives null.
    const char* Set(const char* utf8);

    // At most 4095 UTF-16 units of the plug-in's own string table; nothing when it has no
    // such string.
    void AppendResource(u32 resourceID);

    // Never null.
    const char* Text() const noexcept { return Size() == 0 ? "" : Elements(); }
};
