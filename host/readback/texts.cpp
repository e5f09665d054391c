#include "host/readback/texts.h"

#include <utility>

namespace standin::readback {

u32 Texts::Of(std::string text) {
    const auto [at, isNew] = m_ids.try_emplace(std::move(text), static_cast<u32>(m_texts.size()));
    if (isNew) {
        m_texts.push_back(&at->first);
    }
    return at->second;
}

u32 Texts::Joined(u32 first, u32 second) {
    const auto [at, isNew] = m_joined.try_emplace(u64{first} << 32U | second);
    if (isNew) {
        at->second = Of(*m_texts[first] + *m_texts[second]);
    }
    return at->second;
}

}  // namespace standin::readback
