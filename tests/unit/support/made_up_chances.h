// The random decisions of a made-up score.
#pragma once

#include <random>
#include <set>

#include "shell/host/host_types.h"

namespace standin {

class MadeUpChances {
public:
    MadeUpChances(u32 seed, const std::set<int>& without) : m_random{seed}, m_without{without} {}

    int Below(int end) { return static_cast<int>(m_random() % static_cast<u32>(end)); }
    bool Chance(int percent) { return Below(100) < percent; }
    // Whether an optional feature is included.
    bool Wants(bool wanted) { return wanted && !m_without.contains(m_features++); }
    int Features() const { return m_features; }

private:
    std::mt19937 m_random;
    std::set<int> m_without;
    int m_features = 0;
};

}  // namespace standin
