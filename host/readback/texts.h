// Numbers for texts: equal texts of both scores of a comparison have equal numbers.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "shell/host/host_types.h"

namespace standin::readback {

class Texts {
public:
    u32 Of(std::string text);
    // The number of the two texts, one behind the other.
    u32 Joined(u32 first, u32 second);
    const std::string& operator[](u32 id) const { return *m_texts[id]; }

private:
    std::unordered_map<std::string, u32> m_ids;
    std::unordered_map<u64, u32> m_joined;  // by both numbers
    std::vector<const std::string*> m_texts;
};

}  // namespace standin::readback
