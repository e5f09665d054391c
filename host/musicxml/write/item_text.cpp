#include "host/musicxml/write/item_text.h"

#include <algorithm>

#include "host/musicxml/xml/xml_node.h"

namespace standin {
namespace {

// The element's first child for which test(name) holds, after comments; empty if none.
template <typename Test>
std::string_view ChildWith(std::string_view element, Test test) {
    const std::size_t inner = TagEnd(element, 0);
    if (element.substr(0, inner).ends_with("/>")) {
        return {};
    }
    std::size_t at = element.find('<', inner);
    while (at < element.size() && !element.substr(at).starts_with("</")) {
        const std::size_t end = NodeEnd(element, at);
        if (test(ElementName(element.substr(at)))) {
            return element.substr(at, end - at);
        }
        at = element.find('<', end);
    }
    return {};
}

// The text between the element's tags, after leading comments.
std::string_view ValueOf(std::string_view element) {
    std::size_t at = TagEnd(element, 0);
    while (element.substr(at).starts_with("<!--")) {
        at = NodeEnd(element, at);
    }
    return element.substr(at, element.find('<', at) - at);
}

// The item with that voice instead of its own.
std::string WithVoice(std::string text, std::string_view voice) {
    const std::string_view child =
        ChildWith(text, [](std::string_view name) { return name == "voice"; });
    if (child.empty() || voice.empty()) {
        return text;
    }
    const std::string_view value = ValueOf(child);
    return text.replace(static_cast<std::size_t>(value.data() - text.data()), value.size(), voice);
}

}  // namespace

std::string WithNewNumbers(std::string_view text, std::size_t begin, std::size_t end,
                           const PartLines& lines, const LineNumbers& numbers) {
    auto at = std::ranges::lower_bound(lines.ends, begin, {}, &LineEnd::offset);
    std::string result;
    for (; at != lines.ends.end() && at->offset < end; ++at) {
        if (const auto number = numbers.NewOf(at->line)) {
            const std::size_t tagEnd = TagEnd(text, at->offset);
            result += text.substr(begin, at->offset - begin);
            result += WithAttribute(text.substr(at->offset, tagEnd - at->offset), "number",
                                    std::to_string(*number));
            begin = tagEnd;
        }
    }
    result += text.substr(begin, end - begin);
    return result;
}

std::string ItemText(const ImportedScore& score, const PartLines& lines, const MeasureItem& item,
                     const LineNumbers& numbers, std::string_view voice) {
    return WithVoice(WithNewNumbers(score.text, item.begin, item.end, lines, numbers), voice);
}

}  // namespace standin
