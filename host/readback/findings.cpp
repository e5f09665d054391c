#include "host/readback/findings.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace standin::readback {

namespace {

constexpr std::size_t kMaxFindings = 200;
constexpr std::size_t kLongestText = 60;

// At most three decimals.
std::string Decimal(double value) {
    constexpr int kScale = 1000;
    const long long scaled = std::llround(value * kScale);
    std::string text = std::to_string(scaled / kScale);
    std::string decimals = std::to_string(kScale + std::abs(scaled % kScale)).substr(1);
    decimals.erase(decimals.find_last_not_of('0') + 1);
    return decimals.empty() ? text : text + '.' + decimals;
}

}  // namespace

void Findings::Add(u32 part, const Place& place, std::string what) {
    m_findings.push_back({part, place, std::move(what)});
}

std::vector<std::string> Findings::Lines() const {
    std::vector<const Finding*> sorted;
    for (const Finding& finding : m_findings) {
        sorted.push_back(&finding);
    }
    std::stable_sort(sorted.begin(), sorted.end(), [](const Finding* a, const Finding* b) {
        return std::tie(a->place.measure, a->part, a->place.staff, a->place.onset) <
               std::tie(b->place.measure, b->part, b->place.staff, b->place.onset);
    });
    sorted.resize(std::min(sorted.size(), kMaxFindings));
    std::vector<std::string> lines;
    for (const Finding* finding : sorted) {
        const std::string place = PlaceWords(finding->part, finding->place);
        lines.push_back(place.empty() ? finding->what : place + ": " + finding->what);
    }
    return lines;
}

std::string Findings::PlaceWords(u32 part, const Place& place) const {
    if (part == kNone) {
        return {};
    }
    const std::string where =
        place.staff == 0 ? ", part " + std::to_string(part + 1)
                         : ", staff " + std::to_string(place.staff) + BeatWords(part, place);
    return MeasureWords(part, place.measure) + where;
}

std::string Findings::TimeWords(u32 part, const Place& place) const {
    return MeasureWords(part, place.measure) + BeatWords(part, place);
}

std::string Findings::Quoted(u32 text) const {
    std::string quoted = m_texts[text];
    std::replace_if(
        quoted.begin(), quoted.end(),
        [](char sign) { return static_cast<unsigned char>(sign) < 0x20; }, ' ');
    if (quoted.size() <= kLongestText) {
        return quoted;
    }
    std::size_t end = kLongestText;
    while (end > 0 && (static_cast<unsigned char>(quoted[end]) & 0xC0U) == 0x80U) {
        --end;  // does not cut a multi-byte character
    }
    return quoted.substr(0, end) + "...";
}

std::string Findings::MeasureWords(u32 part, u32 measure) const {
    const auto& measures = m_score.parts[part].measures;
    const std::string number =
        measure < measures.size() ? Quoted(measures[measure].number) : std::string{};
    return "m. " + (number.empty() ? std::to_string(measure + 1) : number);
}

std::string Findings::BeatWords(u32 part, const Place& place) const {
    const auto& measures = m_score.parts[part].measures;
    const ExactTime beat =
        place.measure < measures.size() ? measures[place.measure].beat : ExactTime{1, 1};
    return ", beat " + Decimal(1 + place.onset.AsDouble() / beat.AsDouble());
}

}  // namespace standin::readback
