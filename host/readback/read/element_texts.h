// Elements of one file by the numbers of their canonical texts. A stretch of the file's text that
// comes again and again, as most do, is looked at once.
#pragma once

#include <pugixml.hpp>
#include <string_view>
#include <unordered_map>

#include "host/readback/texts.h"

namespace standin::readback {

class ElementTexts {
public:
    // Both must outlive this object; the nodes asked for must have been parsed from the text.
    ElementTexts(std::string_view xml, Texts& texts) : m_xml{xml}, m_texts{texts} {}

    // The number of the element's canonical text.
    u32 Of(pugi::xml_node element);

    // The text from the element's name to what follows the element. Where these are equal, the
    // elements are.
    std::string_view SourceOf(pugi::xml_node element) const;

    Texts& AllTexts() const { return m_texts; }

private:
    std::string_view m_xml;
    Texts& m_texts;
    std::unordered_map<std::string_view, u32> m_ids;  // by source
};

}  // namespace standin::readback
