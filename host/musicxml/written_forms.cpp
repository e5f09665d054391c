#include "host/musicxml/written_forms.h"

namespace standin {

std::size_t WrittenForms::Hash::operator()(const WrittenForm& form) const noexcept {
    u64 hash = static_cast<u64>(form.length.num) * 0x9E3779B97F4A7C15ULL;
    const auto mix = [&hash](u64 value) { hash = (hash ^ value) * 0x100000001B3ULL; };
    mix(static_cast<u64>(form.length.den));
    mix(static_cast<u64>(form.notated) << 16U | u64{form.type} << 8U | form.dots);
    mix(u64{form.timeModification} << 32U | form.rest);
    mix((form.gap ? 2U : 0U) + (form.stemOnEachNote ? 1U : 0U));
    return static_cast<std::size_t>(hash);
}

u16 WrittenForms::Intern(const WrittenForm& form) {
    if (form == WrittenForm{}) {
        return 0;
    }
    const auto known = m_ids.find(form);
    if (known != m_ids.end()) {
        return known->second;
    }
    if (m_forms.size() > 0xFFFF) {
        return 0;
    }
    const u16 id = static_cast<u16>(m_forms.size());
    m_forms.push_back(form);
    m_ids.emplace(form, id);
    return id;
}

}  // namespace standin
