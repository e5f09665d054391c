// A growable UTF-16 text. Everything after its first zero unit in the buffer is zero.
#pragma once

#include "Class Files/foundation/FinPIVarLenStruct.h"

class FinPIVarStringUtf16 : public FinPIVarLenStruct<char16> {
public:
    FinPIVarStringUtf16() noexcept = default;
    // Null gives the empty text; text that is not valid UTF-8 is read as ANSI text.
    explicit FinPIVarStringUtf16(const char* utf8);
    // A string of the plug-in's own string table, formatted printf-style; texts among the
    // arguments are UTF-8.
    explicit FinPIVarStringUtf16(u32 resourceID, ...);

    // The buffer, sized to the text and its terminator; null empties the text and gives null.
    const char16* Set(const char16* utf16);

    void Append(const char16* utf16);
    void Append(const char* utf8);
    // At most 4095 units; nothing when the string table has no such string.
    void AppendResource(u32 resourceID);

    // Never null.
    const char16* Text() const noexcept { return Size() == 0 ? u"" : Elements(); }
    // In units, without the terminator.
    std::size_t Length() const noexcept;
};
