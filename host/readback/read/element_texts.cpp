#include "host/readback/read/element_texts.h"

#include "host/readback/read/canonical_xml.h"

namespace standin::readback {

u32 ElementTexts::Of(pugi::xml_node element) {
    const auto [at, isNew] = m_ids.try_emplace(SourceOf(element));
    if (isNew) {
        at->second = m_texts.Of(CanonicalXml(element));
    }
    return at->second;
}

std::string_view ElementTexts::SourceOf(pugi::xml_node element) const {
    pugi::xml_node last = element;
    while (last && !last.next_sibling()) {
        last = last.parent();
    }
    const auto begin = static_cast<std::size_t>(element.offset_debug());
    return last ? m_xml.substr(begin,
                               static_cast<std::size_t>(last.next_sibling().offset_debug()) - begin)
                : m_xml.substr(begin);
}

}  // namespace standin::readback
