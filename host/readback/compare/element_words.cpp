#include "host/readback/compare/element_words.h"

#include <algorithm>
#include <pugixml.hpp>
#include <string_view>

namespace standin::readback {

namespace {

constexpr std::size_t kLongest = 60;
constexpr std::size_t kLongestWord = 20;  // to go back for a cut between words

// They group other elements and say nothing by themselves.
constexpr std::string_view kGroups[] = {"notations",      "articulations", "ornaments", "technical",
                                        "direction-type", "attributes",    "direction"};

// Where a mark is drawn; last, since it matters least.
bool IsLayout(std::string_view attribute) {
    return attribute.starts_with("default-") || attribute.starts_with("relative-") ||
           attribute.starts_with("font-") || attribute == "id";
}

void AddAttributes(std::string& words, pugi::xml_node node) {
    std::string list;
    for (const bool layout : {false, true}) {
        for (const pugi::xml_attribute attribute : node.attributes()) {
            if (IsLayout(attribute.name()) == layout) {
                list.append(list.empty() ? "" : ", ")
                    .append(attribute.name())
                    .append(" ")
                    .append(attribute.value());
            }
        }
    }
    if (!list.empty()) {
        words.append(" (").append(list).append(")");
    }
}

void AddWords(std::string& words, pugi::xml_node node) {
    if (words.size() > 2 * kLongest) {
        return;
    }
    const bool isGroup = std::ranges::find(kGroups, node.name()) != std::end(kGroups);
    const bool hasElements = std::ranges::any_of(
        node.children(), [](pugi::xml_node child) { return child.type() == pugi::node_element; });
    if (!isGroup || !hasElements) {
        words += node.name();
        if (!hasElements && node.first_child()) {
            words.append(" \"").append(node.child_value()).append("\"");
        }
        AddAttributes(words, node);
        words += hasElements ? ": " : "";
    }
    bool isFirst = true;
    for (const pugi::xml_node child : node.children()) {
        if (child.type() == pugi::node_element) {
            words += isFirst ? "" : ", ";
            AddWords(words, child);
            isFirst = false;
        }
    }
}

// As much of the text as fits, and dots for the rest.
std::string Cut(const std::string& text) {
    std::size_t end = kLongest;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
        --end;  // a character of several bytes is not cut
    }
    const std::size_t blank = text.rfind(' ', end);
    if (blank != std::string::npos && blank + kLongestWord > end) {
        end = blank;
    }
    std::string start = text.substr(0, end);
    start.erase(start.find_last_not_of(" ,:(") + 1);
    const bool isQuoteOpen = std::ranges::count(start, '"') % 2 != 0;
    return start + "..." + (isQuoteOpen ? "\"" : "");
}

}  // namespace

std::string ElementWords(const std::string& xml) {
    pugi::xml_document document;
    document.load_buffer(xml.data(), xml.size(), pugi::parse_minimal | pugi::parse_escapes,
                         pugi::encoding_utf8);
    std::string words;
    AddWords(words, document.first_child());
    return InOneLine(std::move(words));
}

std::string InOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char sign) { return static_cast<unsigned char>(sign) < 0x20; },
        ' ');
    return text.size() <= kLongest ? text : Cut(text);
}

}  // namespace standin::readback
