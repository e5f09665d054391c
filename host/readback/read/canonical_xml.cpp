#include "host/readback/read/canonical_xml.h"

#include <algorithm>
#include <unordered_set>
#include <utility>
#include <vector>

namespace standin::readback {
namespace {

constexpr std::string_view kSpace = " \t\r\n";

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(kSpace) == std::string_view::npos;
}

void AppendEscaped(std::string& out, std::string_view text) {
    for (const char sign : text) {
        switch (sign) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '"':
                out += "&quot;";
                break;
            default:
                out += sign;
        }
    }
}

// Whether the number means more than an index.
bool HasOwnNumber(std::string_view name) {
    return !IsLine(name) && name != "lyric";
}

bool IsLeftOut(pugi::xml_node parent, std::string_view name) {
    return (name == "voice" || name == "offset") &&
           std::string_view{parent.parent().name()} == "measure";
}

// The reader refuses what is nested too deeply, so that this ends.
void AppendElement(std::string& out, pugi::xml_node node) {
    const std::string_view name = node.name();
    out.append("<").append(name).append(CanonicalAttributes(
        node, HasOwnNumber(name) ? std::string_view{} : std::string_view{"number"}));
    const std::size_t beforeEnd = out.size();
    out += '>';
    const std::size_t begin = out.size();
    for (const pugi::xml_node child : node.children()) {
        if (child.type() == pugi::node_element) {
            if (!IsLeftOut(node, child.name())) {
                AppendElement(out, child);
            }
        } else if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
            if (!IsBlank(child.value())) {
                AppendEscaped(out, child.value());
            }
        }
    }
    if (out.size() == begin) {
        out.resize(beforeEnd);
        out += "/>";
    } else {
        out.append("</").append(name).append(">");
    }
}

}  // namespace

bool IsLine(std::string_view elementName) {
    static const std::unordered_set<std::string_view> kLines{
        "slur",    "tied",  "tuplet",    "wedge", "octave-shift", "dashes",
        "bracket", "pedal", "glissando", "slide", "wavy-line"};
    return kLines.contains(elementName);
}

std::string CanonicalXml(pugi::xml_node node) {
    std::string text;
    AppendElement(text, node);
    return text;
}

std::string CanonicalAttributes(pugi::xml_node node, std::string_view without) {
    std::vector<std::pair<std::string_view, std::string_view>> attributes;
    for (const pugi::xml_attribute attribute : node.attributes()) {
        if (attribute.name() != without) {
            attributes.emplace_back(attribute.name(), attribute.value());
        }
    }
    std::ranges::sort(attributes);
    std::string text;
    for (const auto& [name, value] : attributes) {
        text.append(" ").append(name).append("=\"");
        AppendEscaped(text, value);
        text += '"';
    }
    return text;
}

std::string TrimmedValue(pugi::xml_node node) {
    const std::string_view text = node.child_value();
    const std::size_t first = text.find_first_not_of(kSpace);
    return first == std::string_view::npos
               ? std::string{}
               : std::string{text.substr(first, text.find_last_not_of(kSpace) + 1 - first)};
}

}  // namespace standin::readback
