#include "host/musicxml/xml/parse_failure.h"

#include "host/texts/texts.h"

namespace standin {
namespace {

Text TextFor(pugi::xml_parse_status status) {
    switch (status) {
        case pugi::status_out_of_memory:
            return Text::kNoMemory;
        case pugi::status_unrecognized_tag:
            return Text::kUnknownTag;
        case pugi::status_bad_pi:
            return Text::kBadInstruction;
        case pugi::status_bad_comment:
            return Text::kBadComment;
        case pugi::status_bad_cdata:
            return Text::kBadCdata;
        case pugi::status_bad_doctype:
            return Text::kBadDoctype;
        case pugi::status_bad_pcdata:
            return Text::kBadText;
        case pugi::status_bad_start_element:
            return Text::kBadTag;
        case pugi::status_bad_attribute:
            return Text::kBadAttribute;
        case pugi::status_bad_end_element:
            return Text::kBadEndTag;
        case pugi::status_end_element_mismatch:
            return Text::kTagsMismatch;
        case pugi::status_no_document_element:
            return Text::kNoElement;
        default:
            return Text::kOtherXmlFault;
    }
}

}  // namespace

std::string WordsFor(const pugi::xml_parse_result& failure) {
    return Say(TextFor(failure.status), {});
}

}  // namespace standin
