#include "host/musicxml/write/lines/line_ends.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace standin {

std::vector<SpannerAtEntry> SpannersOfNote(const EXENTRY& entry, const EntryTexts& texts, int note,
                                           const PartLines& lines, const Fragments& fragments) {
    std::vector<SpannerAtEntry> spanners;
    std::set<u16> starts;  // shapes
    for (const SpannerAtEntry& end : texts.spanners) {
        if (NoteOfSpanner(entry, end) == note) {
            spanners.push_back(end);
        }
        if (end.isStart) {
            starts.insert(end.shape);
        }
    }
    // <notations> of their own follow the common ones.
    const auto order = [&](const SpannerAtEntry& end) {
        const bool isSeparate = ElementName(fragments[end.fragment]) == "notations";
        const auto line = lines.lineOfShape.find(end.shape);
        return std::tuple{isSeparate,
                          end.isStart                  ? 1
                          : starts.contains(end.shape) ? 2
                                                       : 0,
                          line == lines.lineOfShape.end() ? 0U : line->second};
    };
    std::ranges::stable_sort(spanners, [&](const SpannerAtEntry& a, const SpannerAtEntry& b) {
        return order(a) < order(b);
    });
    return spanners;
}

void AddEndsOfEntry(const EXENTRY& entry, const EntryTexts& texts, const PartLines& lines,
                    const Fragments& fragments, std::vector<WrittenEnd>& ends) {
    const int notes = std::max<int>(entry.noteCount, 1);
    for (int note = 0; note < notes; ++note) {
        for (const SpannerAtEntry& end : SpannersOfNote(entry, texts, note, lines, fragments)) {
            const auto line = lines.lineOfShape.find(end.shape);
            if (line != lines.lineOfShape.end()) {
                ends.push_back({line->second, end.isStart ? LineRole::kStart : LineRole::kStop});
            }
        }
        for (const EntryText& text : texts.texts) {
            if (note == 0 && text.lineOnItsWay != 0) {
                ends.push_back({text.lineOnItsWay - 1, LineRole::kOnTheWay});
            }
        }
    }
}

void AddEndsOfText(const PartLines& lines, std::size_t begin, std::size_t end,
                   std::vector<WrittenEnd>& ends) {
    auto at = std::ranges::lower_bound(lines.ends, begin, {}, &LineEnd::offset);
    for (; at != lines.ends.end() && at->offset < end; ++at) {
        ends.push_back({at->line, at->role});
    }
}

}  // namespace standin
