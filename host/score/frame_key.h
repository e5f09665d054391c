// The key of a frame: staff, measure and layer.
#pragma once

#include <cstddef>
#include <functional>

#include "shell/host/host_types.h"

namespace standin {

struct FrameKey {
    u16 staff = 0;    // the staff's number, not its slot; 0 = nowhere
    u16 measure = 0;  // from 1
    u16 layer = 0;    // from 0

    // One number that orders as staff, measure and layer do.
    constexpr u64 Packed() const noexcept {
        return (u64{staff} << 32U) | (u64{measure} << 16U) | layer;
    }
    bool operator==(const FrameKey&) const = default;
    constexpr bool operator<(const FrameKey& other) const noexcept {
        return Packed() < other.Packed();
    }
};

}  // namespace standin

template <>
struct std::hash<standin::FrameKey> {
    std::size_t operator()(const standin::FrameKey& key) const noexcept {
        return static_cast<std::size_t>(key.Packed() * 0x9E3779B97F4A7C15ULL >> 16U);
    }
};
