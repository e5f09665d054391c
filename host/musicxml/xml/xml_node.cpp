#include "host/musicxml/xml/xml_node.h"

#include <charconv>

#include "host/musicxml/xml/xml_text.h"

namespace standin {

std::size_t OffsetOf(pugi::xml_node node) {
    const std::ptrdiff_t offset = node.offset_debug();
    if (offset <= 0) {
        return 0;
    }
    // The offset of an element is that of its name; of other nodes, that of the text after their
    // opening.
    const std::ptrdiff_t before = node.type() == pugi::node_comment  ? 4
                                  : node.type() == pugi::node_pi     ? 2
                                  : node.type() == pugi::node_cdata  ? 9
                                  : node.type() == pugi::node_pcdata ? 0
                                                                     : 1;
    return static_cast<std::size_t>(offset - before);
}

std::size_t EndOf(std::string_view text, pugi::xml_node node) {
    const pugi::xml_node next = node.next_sibling();
    if (next && node.type() == pugi::node_element) {
        std::size_t end = OffsetOf(next);
        while (static_cast<unsigned char>(text[end - 1]) <= ' ') {
            --end;
        }
        if (text[end - 2] != '?') {  // an instruction that is not a node, such as a second <?xml ?>
            return end;
        }
    }
    int closing = 0;
    for (pugi::xml_node last = node.last_child(); last; last = node.last_child()) {
        node = last;
        ++closing;
    }
    std::size_t end = NodeEnd(text, OffsetOf(node));
    for (; closing > 0; --closing) {
        end = TagEnd(text, std::min(text.find("</", end), text.size()));
    }
    return end;
}

std::string_view TextOf(std::string_view text, pugi::xml_node node) {
    const std::size_t begin = OffsetOf(node);
    return text.substr(begin, EndOf(text, node) - begin);
}

std::string_view AttributesOf(std::string_view text, pugi::xml_node node) {
    if (!node.first_attribute()) {
        return {};
    }
    const std::size_t begin = OffsetOf(node);
    const std::size_t end = TagEnd(text, begin);
    std::string_view tag = text.substr(begin, end - begin - 1);
    tag.remove_prefix(1 + ElementName(tag).size());
    if (tag.ends_with('/')) {
        tag.remove_suffix(1);
    }
    return Trimmed(tag);
}

std::string_view Trimmed(std::string_view value) {
    constexpr std::string_view kSpaces = " \t\r\n";
    const std::size_t first = value.find_first_not_of(kSpaces);
    if (first == std::string_view::npos) {
        return {};
    }
    return value.substr(first, value.find_last_not_of(kSpaces) - first + 1);
}

std::optional<Rational> DecimalOf(std::string_view value) {
    constexpr std::size_t kMaxDigits = 12;
    value = Trimmed(value);
    const bool negative = value.starts_with('-');
    if (negative || value.starts_with('+')) {
        value.remove_prefix(1);
    }
    i64 number = 0;
    i64 scale = 1;
    std::size_t digits = 0;
    bool fraction = false;
    for (const char c : value) {
        if (c == '.' && !fraction) {
            fraction = true;
        } else if (c >= '0' && c <= '9' && digits < kMaxDigits) {
            number = number * 10 + (c - '0');
            scale *= fraction ? 10 : 1;
            ++digits;
        } else {
            return std::nullopt;
        }
    }
    const Rational result = Rational::Of(negative ? -number : number, scale);
    return digits > 0 && result.IsValid() ? std::optional{result} : std::nullopt;
}

std::optional<int> IntegerOf(std::string_view value) {
    value = Trimmed(value);
    int result = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), result);
    const bool whole = error == std::errc{} && end == value.data() + value.size();
    return whole ? std::optional{result} : std::nullopt;
}

}  // namespace standin
