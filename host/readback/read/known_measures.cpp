#include "host/readback/read/known_measures.h"

#include <algorithm>
#include <functional>

namespace standin::readback {
namespace {

constexpr std::string_view kBegin = "<measure";
constexpr std::string_view kEnd = "</measure>";

// All <measure> elements that have an end tag, in order. A comment can make this wrong, but then
// the rest is not well-formed, or has other measures than the file before.
std::vector<std::string_view> MeasuresIn(std::string_view xml) {
    // Much faster than find(), which stops at each '<'.
    const std::boyer_moore_horspool_searcher endTag{kEnd.begin(), kEnd.end()};
    std::vector<std::string_view> measures;
    for (std::size_t at = xml.find(kBegin); at < xml.size(); at = xml.find(kBegin, at)) {
        const std::size_t nameEnd = at + kBegin.size();
        const auto* const found = std::search(xml.begin() + nameEnd, xml.end(), endTag);
        if (found == xml.end()) {
            break;
        }
        const auto end = static_cast<std::size_t>(found - xml.begin());
        if (xml.find_first_of(" \t\r\n>", nameEnd) != nameEnd) {  // <measure-style>
            at = nameEnd;
            continue;
        }
        measures.push_back(xml.substr(at, end + kEnd.size() - at));
        at = end + kEnd.size();
    }
    return measures;
}

bool HasTuplet(const Score& score, const MeasureContent& measure, u32 tuplet) {
    const auto begin = score.ends.begin();
    return std::any_of(begin + measure.ranges.ends.begin, begin + measure.ranges.ends.end,
                       [tuplet](const LineEnd& end) { return end.kind == tuplet; });
}

}  // namespace

KnownMeasures::KnownMeasures(const Score& before, std::string_view xmlBefore, std::string_view xml,
                             u32 tuplet)
    : m_before{before} {
    const std::vector<std::string_view> were = MeasuresIn(xmlBefore);
    const std::vector<std::string_view> are = MeasuresIn(xml);
    std::size_t count = 0;
    for (const Part& part : before.parts) {
        count += part.measures.size();
    }
    if (were.size() != count || are.size() != count) {
        m_rest = xml;
        return;
    }
    std::size_t place = 0;
    const char* copied = xml.data();
    for (const Part& part : before.parts) {
        std::vector<bool>& isKnown = m_isKnown.emplace_back();
        for (const MeasureContent& measure : part.measures) {
            const std::string_view now = are[place];
            // What crosses between the notes of a tuplet is looked at note by note; comments, which
            // have an exclamation mark, could hide where a measure ends.
            isKnown.push_back(were[place] == now && !HasTuplet(before, measure, tuplet) &&
                              now.find('!') == std::string_view::npos);
            if (isKnown.back()) {
                m_rest.append(copied, now.data()).append("<measure/>");
                copied = now.data() + now.size();
            }
            ++place;
        }
    }
    m_rest.append(copied, xml.data() + xml.size());
}

const MeasureContent* KnownMeasures::Find(u32 part, u32 measure) const {
    const bool isKnown =
        part < m_isKnown.size() && measure < m_isKnown[part].size() && m_isKnown[part][measure];
    return isKnown ? &m_before.parts[part].measures[measure] : nullptr;
}

}  // namespace standin::readback
