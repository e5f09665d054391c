#include "host/report/page/page_parts.h"

#include "host/report/page/html.h"

namespace standin {

std::string SectionHeading(Text text, std::string_view id) {
    return "<h2 id=\"" + std::string{id} + "\">" + HtmlText(text) + "</h2>\n";
}

std::string IdOf(const MergedMeasure& measure) {
    return "s" + std::to_string(measure.staff) + "m" + std::to_string(measure.measure);
}

std::string LayerMark(u16 layer) {
    return "<span class=\"layer layer-" + std::to_string(layer + 1) + "\">" +
           HtmlText(Say(Text::kPageLayer, {std::to_string(layer + 1)})) + "</span>";
}

std::string Joined(const std::vector<std::string>& words, std::string_view between) {
    std::string text;
    for (const std::string& word : words) {
        text.append(text.empty() ? "" : between).append(word);
    }
    return text;
}

}  // namespace standin
