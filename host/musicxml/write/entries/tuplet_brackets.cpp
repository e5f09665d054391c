#include "host/musicxml/write/entries/tuplet_brackets.h"

#include <algorithm>
#include <set>
#include <tuple>

#include "host/musicxml/entry_texts.h"

namespace standin {
namespace {

struct Bracket {
    u32 id = 0;  // as in its text; 0 = it has none
    FragmentId start = 0;
    FragmentId stop = 0;
    std::vector<const BracketTuplet*> tuplets;  // on its staves
    std::size_t depth = 0;
    std::string number;
    BracketPlace* first = nullptr;
    BracketPlace* last = nullptr;
    bool isShown = false;
};

using Places = std::vector<BracketPlace>;
using StandAlone = std::function<bool(const BracketPlace&, const TupletText&)>;

// Calls visit for each place of the tuplet that is written.
template <typename Visit>
void ForEachWritten(Places& places, const BracketTuplet& tuplet, Visit visit) {
    for (std::size_t i = tuplet.first; i <= tuplet.last && i < places.size(); ++i) {
        if (places[i].isWritten) {
            visit(places[i]);
        }
    }
}

void TakeInto(Bracket& bracket, BracketPlace& place) {
    const auto starts = [](const BracketPlace* a) { return std::tuple{a->start, a}; };
    const auto ends = [](const BracketPlace* a) { return std::tuple{a->end, a}; };
    if (bracket.first == nullptr || starts(&place) < starts(bracket.first)) {
        bracket.first = &place;
    }
    if (bracket.last == nullptr || ends(bracket.last) < ends(&place)) {
        bracket.last = &place;
    }
    bracket.isShown |= !place.isLeftBehind;
}

// On one staff where one has all of its time.
void FindEnds(Places& places, Bracket& bracket) {
    for (const BracketTuplet* tuplet : bracket.tuplets) {
        ForEachWritten(places, *tuplet, [&](BracketPlace& place) { TakeInto(bracket, place); });
    }
    for (const BracketTuplet* tuplet : bracket.tuplets) {
        Bracket part;
        ForEachWritten(places, *tuplet, [&](BracketPlace& place) { TakeInto(part, place); });
        if (part.first != nullptr && part.first->start == bracket.first->start &&
            part.last->end == bracket.last->end) {
            bracket.first = part.first;
            bracket.last = part.last;
            return;
        }
    }
}

std::string_view InnerElement(std::string_view element) {
    return ElementName(element) == "notations" ? element.substr(TagEnd(element, 0)) : element;
}

// The element with an attribute, also if it is inside <notations>.
std::string With(std::string_view element, std::string_view name, std::string_view value) {
    const std::string_view inner = InnerElement(element);
    return std::string{element.substr(0, element.size() - inner.size())} +
           WithAttribute(inner, name, value);
}

std::string NumberOf(std::string_view element) {
    const std::string_view number = AttributeText(InnerElement(element), "number");
    return std::string{number.empty() ? "1" : number};
}

std::string FreeNumber(const std::string& wanted, const std::set<std::string>& taken) {
    std::string number = wanted;
    for (int next = 1; taken.contains(number); ++next) {
        number = std::to_string(next);
    }
    return number;
}

class BracketPlacing {
public:
    BracketPlacing(Places& places, const std::vector<BracketTuplet>& tuplets,
                   const Fragments& fragments)
        : m_places{places}, m_tuplets{tuplets}, m_fragments{fragments} {}

    void Collect() {
        for (std::size_t i = 0; i < m_tuplets.size(); ++i) {
            const BracketTuplet& tuplet = m_tuplets[i];
            const auto known = std::ranges::find_if(m_brackets, [&](const Bracket& bracket) {
                return std::ranges::any_of(bracket.tuplets, [&](const BracketTuplet* other) {
                    return AreOne(*other, tuplet);
                });
            });
            Bracket& bracket = known == m_brackets.end() ? m_brackets.emplace_back() : *known;
            if (bracket.id == 0) {
                bracket.id = tuplet.text.bracket;
            }
            if (bracket.id == tuplet.text.bracket) {
                bracket.start = bracket.start != 0 ? bracket.start : tuplet.text.start;
                bracket.stop = bracket.stop != 0 ? bracket.stop : tuplet.text.stop;
            }
            bracket.tuplets.push_back(&tuplet);
            m_bracketOf.push_back(static_cast<std::size_t>(&bracket - m_brackets.data()));
        }
        for (Bracket& bracket : m_brackets) {
            FindEnds(m_places, bracket);
            bracket.depth = DepthOf(*bracket.tuplets.front());
        }
    }

    void Place(const StandAlone& mayStandAlone) {
        std::vector<Bracket*> kept;
        for (Bracket& bracket : m_brackets) {
            const bool isThere = bracket.start != 0 || bracket.stop != 0;
            const bool isWhole = bracket.start != 0 && bracket.stop != 0;
            if (isThere && bracket.first != nullptr &&
                (isWhole ||
                 mayStandAlone(*bracket.first, {bracket.start, bracket.stop, bracket.id}))) {
                kept.push_back(&bracket);
            }
        }
        std::ranges::stable_sort(kept, [](const Bracket* a, const Bracket* b) {
            return std::tie(a->depth, a->id) < std::tie(b->depth, b->id);
        });
        for (Bracket* bracket : kept) {
            Number(*bracket);
        }
        for (const Bracket* bracket : kept) {
            if (bracket->start != 0) {
                bracket->first->brackets += Element(*bracket, bracket->start);
            }
        }
        for (auto at = kept.rbegin(); at != kept.rend(); ++at) {
            const Bracket& bracket = **at;
            if (bracket.stop != 0) {
                const std::string stop = Element(bracket, bracket.stop);
                std::string& brackets = bracket.last->brackets;
                brackets.insert(bracket.start != 0 ? brackets.size() : 0, stop);
            }
        }
    }

private:
    // Whether they are parts of one bracket. On record, each staff has the part of a tuplet that
    // is its own.
    bool AreOne(const BracketTuplet& a, const BracketTuplet& b) const {
        const auto mayHaveParts = [](const BracketTuplet& tuplet) {
            return (tuplet.text.start != 0) == (tuplet.text.stop != 0);
        };
        if (a.text.bracket != 0 && a.text.bracket == b.text.bracket) {
            return true;
        }
        return a.stream == b.stream && mayHaveParts(a) && mayHaveParts(b) &&
               m_places[a.first].start == m_places[b.first].start &&
               m_places[a.last].end == m_places[b.last].end && DepthOf(a) == DepthOf(b);
    }

    std::size_t DepthOf(const BracketTuplet& tuplet) const {
        std::size_t depth = 0;
        for (int outer = tuplet.outer; outer >= 0; outer = Outer(outer)) {
            ++depth;
        }
        return depth;
    }

    int Outer(int tuplet) const { return m_tuplets[static_cast<std::size_t>(tuplet)].outer; }

    // The outer brackets already have theirs.
    void Number(Bracket& bracket) {
        std::set<std::string> taken;
        for (int outer = bracket.tuplets.front()->outer; outer >= 0; outer = Outer(outer)) {
            taken.insert(m_brackets[m_bracketOf[static_cast<std::size_t>(outer)]].number);
        }
        bracket.number = FreeNumber(
            NumberOf(m_fragments[bracket.start != 0 ? bracket.start : bracket.stop]), taken);
    }

    std::string Element(const Bracket& bracket, FragmentId fragment) const {
        std::string element{m_fragments[fragment]};
        if (NumberOf(element) != bracket.number) {
            element = With(element, "number", bracket.number);
        }
        if (!bracket.isShown && fragment == bracket.start) {
            element = With(With(element, "bracket", "no"), "show-number", "none");
        }
        return element;
    }

    Places& m_places;
    const std::vector<BracketTuplet>& m_tuplets;
    const Fragments& m_fragments;
    std::vector<Bracket> m_brackets;
    std::vector<std::size_t> m_bracketOf;  // by tuplet
};

}  // namespace

void AddBracketTuplets(const std::vector<EXENTRY>& entries, const RecordStore& records,
                       const std::vector<std::size_t>& indices,
                       std::vector<BracketTuplet>& tuplets) {
    const bool voice2 =
        !indices.empty() && (entries[indices.front()].flags & EntryFlag::kVoice2) != 0;
    std::vector<int> added;  // by run; -1 = none of its entries has a place
    for (const TupletRun& run : TupletRunsOf(entries, voice2, records)) {
        const auto first = std::ranges::lower_bound(indices, run.first);
        const auto end = std::upper_bound(first, indices.end(), run.last);
        if (first == end) {
            added.push_back(-1);
            continue;
        }
        added.push_back(static_cast<int>(tuplets.size()));
        tuplets.push_back({static_cast<std::size_t>(first - indices.begin()),
                           static_cast<std::size_t>(end - indices.begin()) - 1,
                           run.outer < 0 ? -1 : added[static_cast<std::size_t>(run.outer)],
                           TupletTextOf(*run.record), 0});
    }
}

void PlaceBrackets(Places& places, const std::vector<BracketTuplet>& tuplets,
                   const Fragments& fragments, const StandAlone& mayStandAlone) {
    BracketPlacing placing{places, tuplets, fragments};
    placing.Collect();
    placing.Place(mayStandAlone);
}

}  // namespace standin
