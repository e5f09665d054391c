#include "host/readback/read/voice_order.h"

#include <vector>

namespace standin::readback {

bool VoiceOrder::Allows(u32 first, u32 second) const {
    std::set<u32> reached{second};
    std::vector<u32> next{second};
    while (!next.empty()) {
        const auto wanted = m_wanted.find(next.back());
        next.pop_back();
        if (wanted == m_wanted.end()) {
            continue;
        }
        for (const u32 voice : wanted->second) {
            if (reached.insert(voice).second) {
                next.push_back(voice);
            }
        }
    }
    return !reached.contains(first);
}

}  // namespace standin::readback
