#include "host/musicxml/read/tuplet_groups.h"

#include <algorithm>
#include <cstring>
#include <tuple>

#include "host/musicxml/entry_texts.h"
#include "host/musicxml/read/entry_length.h"

namespace standin {
namespace {

constexpr i64 kLongestSpan = 0x7FFF;  // the limit of both counts and units
// One less than the host's, which leaves room for an entry's own.
constexpr std::size_t kMaxOpenTuplets = 3;

// The element inside, if a bracket has its own <notations>.
std::string_view BracketAttribute(std::string_view element, std::string_view name) {
    const bool isWrapped = ElementName(element) == "notations";
    return AttributeText(isWrapped ? element.substr(TagEnd(element, 0)) : element, name);
}

// Its written time in quarters; 0 if unknown.
Rational WrittenLength(const EntryDraft& draft) {
    const i32 units = NotatedLength(draft.form.type, draft.form.dots);
    return units <= kLongestSpan ? Rational::OfUnits(units) : Rational{};
}

// Written time for each unit of real time; invalid when there is none.
Rational RatioOf(const EntryDraft& draft) {
    const Rational written = WrittenLength(draft);
    return written.IsZero() ? Rational::Invalid() : written / draft.form.length;
}

bool IsSaneRatio(Rational ratio) {
    return ratio.IsValid() && ratio.num > 0 && ratio.num <= ratio.den * kLargestRatio &&
           ratio.den <= ratio.num * kLargestRatio;
}

// The span in the host's whole units, if a record can hold it.
std::optional<i64> SpanInUnits(Rational span) {
    const i64 units = RoundToUnits(span);
    const bool fits = span.IsWholeUnits() && units > 0 && units <= kLongestSpan;
    return fits ? std::optional{units} : std::nullopt;
}

// Symbolic and reference span as counts of units: by the file's own ratio where that divides
// them, else by the simplest one.
void SetSpans(EDTTuplet2005& record, i64 symbolic, i64 reference, const NoteRatio& wanted) {
    const i64 shared = std::gcd(symbolic, reference);
    i64 actual = symbolic / shared;
    i64 normal = reference / shared;
    const bool isWanted = wanted.actual > 0 && wanted.normal > 0 &&
                          wanted.actual * normal == wanted.normal * actual &&
                          symbolic % wanted.actual == 0 && reference % wanted.normal == 0;
    if (isWanted) {
        actual = wanted.actual;
        normal = wanted.normal;
    }
    record.symbolicCount = static_cast<i16>(actual);
    record.symbolicUnitDuration = static_cast<i16>(symbolic / actual);
    record.referenceCount = static_cast<i16>(normal);
    record.referenceUnitDuration = static_cast<i16>(reference / normal);
}

// One ratio for the entries and groups right inside it, with all times whole units of the
// writing. outside: the ratio of the group around it.
bool Express(TupletGroup& group, Rational outside) {
    Rational ratio = outside;
    NoteRatio wanted;
    for (const EntryDraft* entry : group.entries) {
        if (entry->tuplet == &group) {
            ratio = RatioOf(*entry);
            wanted = entry->ratio;
            group.timeModification = entry->form.timeModification;
            break;
        }
    }
    const auto fits = [&](Rational start) {
        return ((start - group.start) * ratio).IsWholeUnits();
    };
    const bool isOneRatio = std::ranges::all_of(group.entries, [&](const EntryDraft* entry) {
        return entry->tuplet != &group || (RatioOf(*entry) == ratio && fits(entry->start));
    });
    const Rational span = group.end - group.start;
    const auto symbolic = SpanInUnits(span * ratio);
    const auto reference = SpanInUnits(span * outside);
    if (!isOneRatio || !IsSaneRatio(ratio / outside) || !symbolic || !reference ||
        !std::ranges::all_of(group.inner, [&](TupletGroup* inner) {
            return fits(inner->start) && Express(*inner, ratio);
        })) {
        return false;
    }
    group.ratio = ratio;
    SetSpans(group.record, *symbolic, *reference, outside == Rational{1, 1} ? wanted : NoteRatio{});
    return true;
}

// If no ratio can be found, a tuplet of 1:1 holds the entries together.
void Shape(TupletGroup& group) {
    if (group.start.IsWholeUnits() && group.end.IsWholeUnits() && Express(group, {1, 1})) {
        return;
    }
    group.ratio = {1, 1};
    const i64 span = RoundToUnits(group.end) - RoundToUnits(group.start);
    group.record = {1, static_cast<i16>(span), 1, static_cast<i16>(span), {}};
    for (TupletGroup* inner : group.inner) {
        Shape(*inner);
    }
}

// A note of a chord that has another on another staff.
bool IsChordMate(const EntryDraft& draft, const EntryDraft& other) {
    return !draft.Grace() && !other.Grace() && draft.start == other.start &&
           draft.staff != other.staff;
}

// One after the other on each staff, and altogether as long as a tuplet can be.
bool MayBeGroup(const std::vector<EntryDraft*>& entries) {
    std::map<int, Rational> ends;
    Rational start = entries.front()->start;
    Rational end = start;
    for (const EntryDraft* entry : entries) {
        const auto last = ends.try_emplace(entry->staff, entry->start).first;
        if (entry->start < last->second) {
            return false;
        }
        last->second = entry->End();
        start = std::min(start, entry->start);
        end = std::max(end, entry->End());
    }
    const i64 span = RoundToUnits(end) - RoundToUnits(start);
    return 0 < span && span <= kLongestSpan;
}

// The entries that belong to a tuplet without brackets, as they are gathered.
class RatioRun {
public:
    explicit RatioRun(EntryDraft& first) : m_entries{&first}, m_end{first.End()} { Count(first); }

    static bool MayStart(const EntryDraft& draft) {
        return draft.start.IsWholeUnits() && HasRatio(draft);
    }

    // False when it belongs to another tuplet or none.
    bool Add(EntryDraft& draft) {
        const bool follows = draft.start == m_end || IsChordMate(draft, *m_entries.back());
        if (!HasRatio(draft) || !(draft.ratio == m_entries.front()->ratio) || !follows) {
            return false;
        }
        m_entries.push_back(&draft);
        m_end = std::max(m_end, draft.End());
        Count(draft);
        return true;
    }

    // As many notes of the type as the ratio says, or of a type twice as long, and so on. Without a
    // type, that of the shortest note.
    bool IsFull() const {
        const NoteRatio& ratio = m_entries.front()->ratio;
        const auto written = SpanInUnits((m_end - m_entries.front()->start) *
                                         Rational::Of(ratio.actual, ratio.normal));
        if (!written || !m_end.IsWholeUnits()) {
            return false;
        }
        if (ratio.normalUnit > 0) {
            return *written == i64{ratio.actual} * ratio.normalUnit;
        }
        i64 full = i64{ratio.actual} * m_shortest;
        while (full < *written) {
            full *= 2;
        }
        return full == *written;
    }

    bool IsTooLong() const { return kLongestSpan < RoundToUnits(m_end - m_entries[0]->start); }

    std::vector<EntryDraft*> Take() { return std::move(m_entries); }

private:
    static bool HasRatio(const EntryDraft& draft) {
        const auto& [actual, normal, unit] = draft.ratio;
        return draft.tuplet == nullptr && !draft.Grace() && actual > 0 && normal > 0 &&
               actual != normal && RatioOf(draft) == Rational::Of(actual, normal);
    }

    void Count(const EntryDraft& draft) {
        m_shortest = std::min(m_shortest, NotatedLength(draft.form.type, 0));
    }

    std::vector<EntryDraft*> m_entries;
    Rational m_end;
    i32 m_shortest = kLongestSpan;
};

}  // namespace

void TupletGroups::Dissolve(TupletGroup& group) {
    for (TupletGroup* inner : group.inner) {
        Dissolve(*inner);
    }
    for (EntryDraft* entry : group.entries) {
        entry->tuplet = nullptr;
    }
    if (group.text.bracket != 0) {
        group.entries.front()->bracketEnds.push_back({group.text.start, 0, group.text.bracket});
        group.stopsAt->bracketEnds.push_back({0, group.text.stop, group.text.bracket});
    }
}

Bytes TupletGroups::RecordOf(const TupletGroup& group) {
    Bytes bytes = BytesOf(group.record);
    std::memcpy(bytes.data() + kTupletTextOffset, &group.text, sizeof(group.text));
    return bytes;
}

void TupletGroups::Find(std::deque<EntryDraft>& drafts, u16 measure) {
    m_groups.clear();
    std::map<std::string_view, Voice> voices;
    for (EntryDraft& draft : drafts) {
        voices[draft.voice].push_back(&draft);
    }
    for (const auto& [name, voice] : voices) {
        GroupBrackets(voice, PairBrackets(voice, measure));
        GroupRatios(voice);
    }
}

// In the file's order: a stop ends the latest start of its number.
std::vector<TupletGroups::BracketPair> TupletGroups::PairBrackets(const Voice& voice, u16 measure) {
    std::vector<BracketEnd>& open =
        m_open.try_emplace(std::string{voice.front()->voice}).first->second;
    std::vector<BracketEnd> stops;  // without a start
    std::vector<BracketPair> pairs;
    for (std::size_t i = 0; i < voice.size(); ++i) {
        ForEachElement(m_fragments[voice[i]->brackets], [&](std::string_view element) {
            const std::string_view number = BracketAttribute(element, "number");
            BracketEnd end{i, std::string{number.empty() ? "1" : number},
                           m_fragments.InternCopy(element), 0, measure};
            if (BracketAttribute(element, "type") == "start") {
                end.bracket = ++m_brackets;
                open.push_back(std::move(end));
                return;
            }
            const auto start = std::find_if(
                open.rbegin(), open.rend(),
                [&end](const BracketEnd& candidate) { return candidate.number == end.number; });
            if (start == open.rend()) {
                stops.push_back(std::move(end));
                return;
            }
            end.bracket = start->bracket;
            pairs.push_back({std::move(*start), std::move(end)});
            open.erase(std::next(start).base());
        });
    }
    KeepOpenBrackets(voice, open, stops, measure, pairs);
    return pairs;
}

// Brackets with one end in this measure.
void TupletGroups::KeepOpenBrackets(const Voice& voice, std::vector<BracketEnd>& open,
                                    std::vector<BracketEnd>& stops, u16 measure,
                                    std::vector<BracketPair>& pairs) {
    // Some programs write the stop of a tuplet of one note before its start.
    for (BracketEnd& stop : stops) {
        const auto start = std::ranges::find_if(open, [&](const BracketEnd& other) {
            return other.measure == measure && other.entry == stop.entry &&
                   other.number == stop.number;
        });
        if (start != open.end()) {
            stop.bracket = start->bracket;
            pairs.push_back({std::move(*start), stop});
            open.erase(start);
        } else {
            voice[stop.entry]->bracketEnds.push_back({0, stop.element, ++m_brackets});
        }
    }
    for (const BracketEnd& start : open) {
        if (start.measure == measure) {
            voice[start.entry]->bracketEnds.push_back({start.element, 0, start.bracket});
        }
    }
    std::erase_if(pairs, [&](const BracketPair& pair) {
        const bool crosses = pair.start.measure != measure;
        if (crosses) {
            m_crossing[pair.start.bracket] = {pair.start.measure, measure};
            voice[pair.stop.entry]->bracketEnds.push_back(
                {0, pair.stop.element, pair.stop.bracket});
        }
        return crosses;
    });
}

TupletGroup& TupletGroups::NewGroup(Voice entries, TupletGroup* outer) {
    TupletGroup& group = m_groups.emplace_back();
    group.start = entries.front()->start;
    group.end = group.start;
    for (EntryDraft* entry : entries) {
        entry->tuplet = &group;
        group.start = std::min(group.start, entry->start);
        group.end = std::max(group.end, entry->End());
    }
    group.entries = std::move(entries);
    group.outer = outer;
    if (outer != nullptr) {
        outer->inner.push_back(&group);
    }
    return group;
}

void TupletGroups::GroupBrackets(const Voice& voice, std::vector<BracketPair> pairs) {
    std::ranges::sort(pairs, [](const BracketPair& a, const BracketPair& b) {
        return std::tuple{a.start.entry, b.stop.entry, a.start.bracket} <
               std::tuple{b.start.entry, a.stop.entry, b.start.bracket};
    });
    struct Open {
        TupletGroup* group;
        std::size_t end;
    };
    std::vector<Open> open;
    Voice outermost;
    std::vector<TupletGroup*> groups;
    for (const BracketPair& pair : pairs) {
        std::size_t end = pair.stop.entry + 1;
        while (end < voice.size() && IsChordMate(*voice[end], *voice[pair.stop.entry])) {
            ++end;
        }
        while (!open.empty() && open.back().end <= pair.start.entry) {
            open.pop_back();
        }
        Voice entries;
        std::copy_if(voice.begin() + static_cast<std::ptrdiff_t>(pair.start.entry),
                     voice.begin() + static_cast<std::ptrdiff_t>(end), std::back_inserter(entries),
                     [](const EntryDraft* draft) { return !draft->Grace(); });
        const bool isNested = open.empty() || (end <= open.back().end);
        const TupletText text{pair.start.element, pair.stop.element, pair.start.bracket};
        if (voice[pair.start.entry]->Grace() || voice[pair.stop.entry]->Grace() || !isNested ||
            open.size() >= kMaxOpenTuplets || !MayBeGroup(entries)) {
            voice[pair.start.entry]->bracketEnds.push_back({text.start, 0, text.bracket});
            voice[pair.stop.entry]->bracketEnds.push_back({0, text.stop, text.bracket});
            continue;
        }
        TupletGroup& group =
            NewGroup(std::move(entries), open.empty() ? nullptr : open.back().group);
        group.text = text;
        group.stopsAt = voice[pair.stop.entry];
        open.push_back({&group, end});
        groups.push_back(&group);
    }
    for (TupletGroup* group : groups) {
        if (group->outer == nullptr) {
            Shape(*group);
        }
    }
}

void TupletGroups::GroupRatios(const Voice& voice) {
    for (std::size_t first = 0; first < voice.size(); ++first) {
        if (!RatioRun::MayStart(*voice[first])) {
            continue;
        }
        RatioRun run{*voice[first]};
        for (std::size_t next = first; !run.IsTooLong(); ++next) {
            const bool chordGoesOn =
                next + 1 < voice.size() && IsChordMate(*voice[next + 1], *voice[next]);
            if (!chordGoesOn && run.IsFull()) {
                Shape(NewGroup(run.Take(), nullptr));
                first = next;
                break;
            }
            if (next + 1 == voice.size() ||
                (!voice[next + 1]->Grace() && !run.Add(*voice[next + 1]))) {
                break;
            }
        }
    }
}

}  // namespace standin
