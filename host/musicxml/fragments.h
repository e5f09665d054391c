// Pieces of XML text with numbers that records refer to, so that equal pieces have equal records.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "shell/host/host_types.h"

namespace standin {

using FragmentId = u32;  // 0 = none

class Fragments {
public:
    // The number of a text that outlives this table; 0 for an empty one.
    FragmentId Intern(std::string_view text);
    // The number of a text that is copied when it is new.
    FragmentId InternCopy(std::string_view text);
    // Empty for 0 and for unknown numbers.
    std::string_view operator[](FragmentId id) const noexcept {
        return id < m_texts.size() ? m_texts[id] : std::string_view{};
    }

private:
    std::vector<std::string_view> m_texts{{}};
    std::unordered_map<std::string_view, FragmentId> m_ids;
    std::deque<std::string> m_copies;
};

}  // namespace standin
