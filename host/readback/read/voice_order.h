// Whether the voices of a measure could be ordered so that lines run forward in the text.
#pragma once

#include <map>
#include <set>
#include <utility>

#include "shell/host/host_types.h"

namespace standin::readback {

// For one measure of one part. A line from one voice to another requires the first voice to come
// first.
class VoiceOrder {
public:
    void Want(u32 first, u32 second) { m_wanted[first].insert(second); }

    // False if other lines require the opposite order, directly or through other voices.
    bool Allows(u32 first, u32 second) const;

private:
    std::map<u32, std::set<u32>> m_wanted;
};

// By part and measure.
using VoiceOrders = std::map<std::pair<u32, u32>, VoiceOrder>;

}  // namespace standin::readback
