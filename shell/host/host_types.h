// The scalar types that cross the host interface, and the words every call shares.
#pragma once

#include <cstdint>

using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;
using u64 = std::uint64_t;
using i8 = std::int8_t;
using i16 = std::int16_t;
using i32 = std::int32_t;
using i64 = std::int64_t;
using char16 = char16_t;  // one UTF-16 unit

// A window of the host's user interface: HWND on Windows, an opaque pointer elsewhere.
struct HWND__;
using WindowHandle = HWND__*;

// The host version the plug-in is built for; the last argument of every host callback.
inline constexpr u32 kInterfaceVersion = 0x1B400000;

// An end position that means "through the end of the measure".
inline constexpr i32 kEndOfMeasure = 0x7FFFFFFF;

// Duration units in a quarter note.
inline constexpr i32 kQuarterNote = 1024;

// All layers but the destination, where an option names the source layer by number.
inline constexpr u16 kAllLayers = 0xFFFF;

// The most notes that one entry holds.
inline constexpr i16 kMaxNotesPerEntry = 12;

// The tag of a host record, from its four characters, most significant first.
constexpr u32 HostTag(const char (&characters)[5]) noexcept {
    u32 tag = 0;
    for (int i = 0; i < 4; ++i) {
        tag = (tag << 8U) | static_cast<u8>(characters[i]);
    }
    return tag;
}
