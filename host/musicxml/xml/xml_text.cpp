#include "host/musicxml/xml/xml_text.h"

#include <algorithm>
#include <optional>

namespace standin {
namespace {

bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

std::size_t FindPast(std::string_view text, std::string_view what, std::size_t from) {
    const std::size_t at = text.find(what, from);
    return at == std::string_view::npos ? text.size() : at + what.size();
}

// The offset after a comment, instruction, CDATA section or declaration; 0 if begin is none of
// these.
std::size_t SpecialEnd(std::string_view text, std::size_t begin) {
    const std::string_view rest = text.substr(begin);
    if (rest.starts_with("<!--")) {
        return FindPast(text, "-->", begin + 4);
    }
    if (rest.starts_with("<?")) {
        return FindPast(text, "?>", begin + 2);
    }
    if (rest.starts_with("<![CDATA[")) {
        return FindPast(text, "]]>", begin + 9);
    }
    if (rest.starts_with("<!")) {
        const std::size_t close = text.find_first_of("[>", begin);
        if (close != std::string_view::npos && text[close] == '[') {
            return FindPast(text, ">", text.find(']', close));
        }
        return FindPast(text, ">", begin);
    }
    return 0;
}

// The place of an attribute in the element's first tag: its name and value, without quotes.
struct AttributePlace {
    std::size_t nameBegin = 0;
    std::size_t valueBegin = 0;
    std::size_t valueEnd = 0;
};

std::optional<AttributePlace> FindAttribute(std::string_view element, std::string_view name) {
    const std::size_t end = TagEnd(element, 0);
    std::size_t at = 1 + ElementName(element).size();
    while (at < end) {
        while (at < end && IsSpace(element[at])) {
            ++at;
        }
        const std::size_t nameBegin = at;
        const std::size_t equals = element.find('=', at);
        const std::size_t open = element.find_first_of("\"'", at);
        if (equals >= end || open >= end) {
            break;
        }
        const std::size_t close = element.find(element[open], open + 1);
        if (close >= end) {
            break;
        }
        std::string_view found = element.substr(nameBegin, equals - nameBegin);
        while (!found.empty() && IsSpace(found.back())) {
            found.remove_suffix(1);
        }
        if (found == name) {
            return AttributePlace{nameBegin, open + 1, close};
        }
        at = close + 1;
    }
    return std::nullopt;
}

}  // namespace

std::size_t LineAt(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, std::min(offset, text.size()));
    return 1 + static_cast<std::size_t>(std::ranges::count(before, '\n'));
}

std::size_t TagEnd(std::string_view text, std::size_t begin) {
    const std::size_t close = text.find('>', begin);
    const std::string_view tag = text.substr(begin, close - begin);
    const std::size_t value = std::min(tag.find('"'), tag.find('\''));
    if (value == std::string_view::npos) {
        return std::min(close, text.size() - 1) + 1;
    }
    for (std::size_t at = begin + value; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '>') {
            return at + 1;
        }
        if (c == '"' || c == '\'') {
            at = std::min(text.find(c, at + 1), text.size());
        }
    }
    return text.size();
}

std::size_t NodeEnd(std::string_view text, std::size_t begin) {
    if (begin < text.size() && text[begin] != '<') {  // plain text
        return std::min(text.find('<', begin), text.size());
    }
    int depth = 0;
    for (std::size_t at = begin; at < text.size(); at = text.find('<', at)) {
        if (const std::size_t end = SpecialEnd(text, at); end != 0) {
            if (depth == 0) {
                return end;
            }
            at = end;
            continue;
        }
        const std::size_t end = TagEnd(text, at);
        if (text[at + 1] == '/') {
            --depth;
        } else if (text[end - 2] != '/') {
            ++depth;
        }
        if (depth <= 0) {
            return end;
        }
        at = end;
    }
    return text.size();
}

std::string_view ElementName(std::string_view element) {
    const std::size_t end = element.find_first_of(" \t\r\n/>", 1);
    return element.substr(1, end == std::string_view::npos ? end : end - 1);
}

std::string_view AttributeText(std::string_view element, std::string_view name) {
    const auto place = FindAttribute(element, name);
    return place ? element.substr(place->valueBegin, place->valueEnd - place->valueBegin)
                 : std::string_view{};
}

std::string WithAttribute(std::string_view element, std::string_view name, std::string_view value) {
    std::string result{element};
    if (const auto place = FindAttribute(element, name)) {
        if (!value.empty()) {
            return result.replace(place->valueBegin, place->valueEnd - place->valueBegin, value);
        }
        return result.erase(place->nameBegin - 1, place->valueEnd + 2 - place->nameBegin);
    }
    if (!value.empty()) {
        const std::string attribute = ' ' + std::string{name} + "=\"" + std::string{value} + '"';
        result.insert(1 + ElementName(element).size(), attribute);
    }
    return result;
}

std::string Escaped(std::string_view text) {
    std::string result;
    for (const char sign : text) {
        if (sign == '&') {
            result += "&amp;";
        } else if (sign == '<') {
            result += "&lt;";
        } else {
            result += sign;
        }
    }
    return result;
}

}  // namespace standin
