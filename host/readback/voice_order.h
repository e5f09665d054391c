// Whether the voices of a measure could stand in an order in which lines run forward in the text.
#pragma once

#include <map>
#include <set>
#include <utility>

#include "shell/host/host_types.h"

namespace standin::readback {

// Of one measure of one part. Lines that run from one voice to another want the one to stand first.
class VoiceOrder {
public:
    void Want(u32 first, u32 second) { m_wanted[first].insert(second); }

    // False when other lines want it the other way round, be it through further voices.
    bool Allows(u32 first, u32 second) const;

private:
    std::map<u32, std::set<u32>> m_wanted;
};

// By part and measure.
using VoiceOrders = std::map<std::pair<u32, u32>, VoiceOrder>;

}  // namespace standin::readback
