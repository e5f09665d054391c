// Which layer of which staff in which measure: the place of a frame.
#pragma once

#include <compare>
#include <cstddef>
#include <functional>

#include "shell/host/host_types.h"

namespace standin {

struct FrameKey {
    u16 staff = 0;    // the staff's number, not its slot; 0 = nowhere
    u16 measure = 0;  // from 1
    u16 layer = 0;    // from 0

    auto operator<=>(const FrameKey&) const = default;
};

}  // namespace standin

template <>
struct std::hash<standin::FrameKey> {
    std::size_t operator()(const standin::FrameKey& key) const noexcept {
        const u64 packed = (u64{key.staff} << 32U) | (u64{key.measure} << 16U) | key.layer;
        return static_cast<std::size_t>(packed * 0x9E3779B97F4A7C15ULL >> 16U);
    }
};
