#include "host/musicxml/write/tuplet_brackets.h"

#include <algorithm>

#include "host/musicxml/entry_texts.h"

namespace standin {
namespace {

struct Bracket {
    std::size_t entry = 0;
    bool isStart = false;
    std::string element;
    std::string number;
    bool kept = false;
};

std::vector<Bracket> BracketsOf(const std::vector<EntryBrackets>& entries) {
    std::vector<Bracket> brackets;
    const auto add = [&brackets](std::size_t entry, const std::string& elements, bool isStart) {
        ForEachElement(elements, [&](std::string_view element) {
            const bool isWrapped = ElementName(element) == "notations";
            const std::string_view inner = isWrapped ? element.substr(TagEnd(element, 0)) : element;
            const std::string_view number = AttributeText(inner, "number");
            brackets.push_back({entry, isStart, std::string{element},
                                std::string{number.empty() ? "1" : number}, false});
        });
    };
    for (std::size_t entry = 0; entry < entries.size(); ++entry) {
        add(entry, entries[entry].stops, false);
        add(entry, entries[entry].starts, true);
    }
    return brackets;
}

bool IsShownBetween(const std::vector<EntryBrackets>& entries, std::size_t first,
                    std::size_t last) {
    const auto begin = entries.begin();
    return std::any_of(begin + static_cast<std::ptrdiff_t>(first),
                       begin + static_cast<std::ptrdiff_t>(last) + 1,
                       [](const EntryBrackets& entry) { return !entry.hidden; });
}

bool CrossesBarline(const Bracket& bracket, const EntryBrackets& entry) {
    return !entry.hidden && entry.crossing.find(bracket.element) != std::string::npos;
}

}  // namespace

void DropUnpairedBrackets(std::vector<EntryBrackets>& entries) {
    std::vector<Bracket> brackets = BracketsOf(entries);
    std::vector<Bracket*> open;
    for (Bracket& bracket : brackets) {
        if (bracket.isStart) {
            open.push_back(&bracket);
            continue;
        }
        const auto start = std::find_if(open.rbegin(), open.rend(), [&](const Bracket* candidate) {
            return candidate->number == bracket.number;
        });
        if (start != open.rend()) {
            bracket.kept = IsShownBetween(entries, (*start)->entry, bracket.entry);
            (*start)->kept = bracket.kept;
            open.erase(std::next(start).base());
        } else {
            bracket.kept = CrossesBarline(bracket, entries[bracket.entry]);
        }
    }
    for (Bracket* start : open) {
        start->kept = CrossesBarline(*start, entries[start->entry]);
    }
    for (EntryBrackets& entry : entries) {
        entry.stops.clear();
        entry.starts.clear();
    }
    for (const Bracket& bracket : brackets) {
        if (bracket.kept) {
            EntryBrackets& entry = entries[bracket.entry];
            (bracket.isStart ? entry.starts : entry.stops) += bracket.element;
        }
    }
}

}  // namespace standin
