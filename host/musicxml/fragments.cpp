#include "host/musicxml/fragments.h"

namespace standin {

FragmentId Fragments::Intern(std::string_view text) {
    if (text.empty()) {
        return 0;
    }
    const auto [at, isNew] = m_ids.try_emplace(text, static_cast<FragmentId>(m_texts.size()));
    if (isNew) {
        m_texts.push_back(text);
    }
    return at->second;
}

FragmentId Fragments::InternCopy(std::string_view text) {
    const auto known = m_ids.find(text);
    if (known != m_ids.end()) {
        return known->second;
    }
    return text.empty() ? 0 : Intern(m_copies.emplace_back(text));
}

}  // namespace standin
