// How far a host writes into memory that it is lent.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "shell/host/host_types.h"

namespace probe {

inline constexpr std::size_t kRoomBytes = 8192;
using Room = std::array<u8, kRoomBytes>;

// How many bytes up to the last one that the call wrote; 0 = it wrote nothing. The call is made
// twice, in memory filled with two patterns, so that a byte that happens to equal one still counts.
template <typename Call>
std::size_t LastWritten(Call call) {
    std::size_t last = 0;
    for (const u8 pattern : {u8{0x5A}, u8{0xC3}}) {
        alignas(16) Room room;
        room.fill(pattern);
        call(room.data());
        const auto changed = std::find_if(room.rbegin(), room.rend(),
                                          [pattern](u8 byte) { return byte != pattern; });
        last = std::max(last, static_cast<std::size_t>(room.rend() - changed));
    }
    return last;
}

}  // namespace probe
