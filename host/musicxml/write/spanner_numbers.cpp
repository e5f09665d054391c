#include "host/musicxml/write/spanner_numbers.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "host/musicxml/note_details.h"
#include "host/musicxml/xml/xml_node.h"
#include "host/score/tags.h"

namespace standin {
namespace {

constexpr int kMostNumbers = 16;

using Moment = std::pair<u16, i32>;  // measure and position

struct Line {
    u16 shape = 0;
    std::size_t part = 0;
    std::string_view name;
    int number = 1;
    bool moved = false;
    Moment begin;
    Moment end;
    EDTSmartShape record{};
};

// The spanner's element, also where it stands inside <notations>.
std::string_view InnerElement(std::string_view element) {
    return ElementName(element) == "notations" ? element.substr(TagEnd(element, 0)) : element;
}

Moment MomentOf(const Document& document, const EDTSmartShapeEnd& end) {
    const EXENTRY* entry = document.FindEntry(end.entryNumber);
    const i32 position = entry != nullptr ? i32{entry->elapsedTime} : i32{end.position};
    return {end.measure, position};
}

// From when to when the number is taken: for a line without an end from the piece's start or to
// its end. Voices are written one after the other, so a line
// between two voices may end in the file before it begins: it needs its measures for itself.
void SetSpan(const Document& document, const SpannerText& text, Line& line) {
    const EDTSmartShape& record = line.record;
    line.begin = MomentOf(document, record.start);
    line.end = MomentOf(document, record.end);
    const FrameKey start = document.HomeOf(record.start.entryNumber);
    const FrameKey end = document.HomeOf(record.end.entryNumber);
    if (start.staff != end.staff || start.layer != end.layer) {
        line.begin.second = 0;
        line.end.second = kEndOfMeasure;
    }
    if (text.start == 0) {
        line.begin = {};
    } else if (text.stop == 0) {
        line.end = {0xFFFF, kEndOfMeasure};
    }
}

std::vector<Line> LinesOf(const ImportedScore& score) {
    std::unordered_map<u16, std::size_t> partOfStaff;
    for (std::size_t part = 0; part < score.parts.size(); ++part) {
        for (const StaffVoices& staff : score.parts[part].staves) {
            partOfStaff[staff.staff] = part;
        }
    }
    std::vector<Line> lines;
    for (const auto& [key, bytes] : score.document->Records().OfTag(Tag::kSmartShape)) {
        Line line;
        line.record = FromBytes<EDTSmartShape>(bytes);
        SpannerText text{};
        std::memcpy(&text, bytes.data() + kSpannerTextOffset, sizeof(text));
        const FragmentId end = text.start != 0 ? text.start : text.stop;
        const std::string_view element = InnerElement(score.fragments[end]);
        line.shape = key.OtherItem();
        line.part = partOfStaff[line.record.start.staff];
        line.name = ElementName(element);
        line.number = IntegerOf(AttributeText(element, "number")).value_or(1);
        SetSpan(*score.document, text, line);
        const Bytes* imported = score.document->ImportedRecord(Tag::kSmartShape, key);
        line.moved = imported == nullptr || *imported != bytes;
        lines.push_back(line);
    }
    return lines;
}

bool Overlap(const Line& a, const Line& b) {
    return a.shape != b.shape && a.part == b.part && a.name == b.name && a.begin <= b.end &&
           b.begin <= a.end;
}

}  // namespace

SpannerNumbers ChooseSpannerNumbers(const ImportedScore& score,
                                    std::set<std::pair<u16, u16>>& changed) {
    SpannerNumbers numbers;
    if (changed.empty()) {
        return numbers;
    }
    std::vector<Line> lines = LinesOf(score);
    for (Line& line : lines) {
        if (!line.moved) {
            continue;
        }
        std::array<bool, kMostNumbers + 1> taken{};
        for (const Line& other : lines) {
            if (Overlap(line, other) && other.number >= 1 && other.number <= kMostNumbers) {
                taken[static_cast<std::size_t>(other.number)] = true;
            }
        }
        const bool isTaken = line.number >= 1 && line.number <= kMostNumbers &&
                             taken[static_cast<std::size_t>(line.number)];
        const auto free = std::find(taken.begin() + 1, taken.end(), false);
        if (!isTaken || free == taken.end()) {
            continue;
        }
        line.number = static_cast<int>(free - taken.begin());
        numbers[line.shape] = line.number;
        changed.emplace(line.record.start.staff, line.record.start.measure);
        changed.emplace(line.record.end.staff, line.record.end.measure);
    }
    return numbers;
}

}  // namespace standin
