// Conversions between UTF-8 and UTF-16, and the UTF-16 string functions built on them.
// Every destination is the caller's buffer, and is what a function returns. A conversion that
// fails posts an error and leaves an empty, terminated destination.
#pragma once

#include "shell/host/host_types.h"

namespace FinPIUniStringUtil {

// size in bytes, at least 1. A longer text is cut at size - 1 bytes, which can fall inside a
// multi-byte character.
char* UniChar_Utf8encode(char* destination, const char16* source, u64 size);

// size in units, at least 1; the rest of the destination is zero-filled. A source that is not
// valid UTF-8 is read as ANSI text.
char16* UniChar_Utf16encode(char16* destination, const char* source, u64 size);

// The first such unit, the terminator included; null when there is none. Characters above
// 0xFFFF are not supported: that posts an error and gives null.
char16* UniChar_strchr(char16* text, u32 character);

// size in units, at least 1; cut and zero-filled like strncpy, and always terminated.
char16* UniChar_strncpyUtf8(char16* destination, const char* utf8, u64 size);

// These two append without a bound: the caller guarantees room.
char16* UniChar_strcatUtf8(char16* destination, const char* utf8);
char16* UniChar_strcatInt(char16* destination, u32 value);  // as signed decimal

}  // namespace FinPIUniStringUtil
