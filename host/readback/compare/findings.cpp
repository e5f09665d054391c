#include "host/readback/compare/findings.h"

#include <algorithm>
#include <tuple>

#include "host/readback/compare/element_words.h"
#include "host/readback/compare/place_words.h"

namespace standin::readback {

void Findings::Add(u32 part, const Place& place, Difference::Kind kind, std::string what) {
    m_findings.push_back({part, place, kind, std::move(what)});
}

std::vector<Difference> Findings::All() const {
    std::vector<const Finding*> sorted;
    sorted.reserve(m_findings.size());
    for (const Finding& finding : m_findings) {
        sorted.push_back(&finding);
    }
    std::ranges::stable_sort(sorted, [](const Finding* a, const Finding* b) {
        return std::tie(a->place.measure, a->part, a->place.staff, a->place.onset) <
               std::tie(b->place.measure, b->part, b->place.staff, b->place.onset);
    });
    std::vector<Difference> all;
    all.reserve(sorted.size());
    for (const Finding* finding : sorted) {
        all.push_back(At(*finding));
    }
    return all;
}

std::string Findings::TimeWords(u32 part, const Place& place) const {
    return MeasureWords(NumberOf(part, place.measure)) + ", " + BeatWords(BeatOf(part, place));
}

std::string Findings::Quoted(u32 text) const {
    return ElementWords(m_texts[text]);
}

Difference Findings::At(const Finding& finding) const {
    Difference difference;
    difference.kind = finding.kind;
    difference.what = finding.what;
    if (finding.part != kNone) {
        difference.part = finding.part + 1;
        difference.measure = finding.place.measure + 1;
        difference.number = NumberOf(finding.part, finding.place.measure);
        difference.staff = finding.place.staff;
        if (finding.place.staff != 0) {
            difference.beat = BeatOf(finding.part, finding.place);
        }
    }
    return difference;
}

std::string Findings::NumberOf(u32 part, u32 measure) const {
    const auto& measures = m_score.parts[part].measures;
    const std::string number =
        measure < measures.size() ? InOneLine(m_texts[measures[measure].number]) : std::string{};
    return number.empty() ? std::to_string(measure + 1) : number;
}

double Findings::BeatOf(u32 part, const Place& place) const {
    const auto& measures = m_score.parts[part].measures;
    const ExactTime beat =
        place.measure < measures.size() ? measures[place.measure].beat : ExactTime{1, 1};
    return 1 + place.onset.AsDouble() / beat.AsDouble();
}

}  // namespace standin::readback
