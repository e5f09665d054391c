#include "host/musicxml/write/measure_plan.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

#include "host/musicxml/expressions.h"
#include "host/musicxml/write/beam_writer.h"
#include "host/musicxml/write/crossing_ends.h"
#include "host/musicxml/write/stream_order.h"
#include "host/musicxml/write/tie_links.h"
#include "host/musicxml/write/voice_streams.h"
#include "host/score/records/tags.h"

namespace standin {
namespace {

using Events = std::vector<PlannedEvent>;

// The beams of one stream, made whole.
void MendBeams(const std::vector<CrossingEnds>& crossing, Events& events) {
    std::vector<PlannedEvent*> line;
    std::vector<BeamedEntry> beamed;
    for (PlannedEvent& event : events) {
        if (event.beamedByHost) {
            continue;
        }
        line.push_back(&event);
        beamed.push_back({ReadBeams(event.beams), !event.Sounds(), event.IsGrace()});
        for (const CrossingEnds& ends : crossing) {
            const bool isThis = ends.time == event.time.start && ends.beams == event.beams;
            beamed.back().comesIn |= isThis && ends.beamsCome;
            beamed.back().goesOn |= isThis && ends.beamsGo;
        }
    }
    std::vector<BeamedEntry> whole = beamed;
    MakeBeamsWhole(whole);
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (whole[i].levels != beamed[i].levels) {
            line[i]->beams = WriteBeams(whole[i].levels);
        }
    }
}

// The place to which the expression of a direction with a voice is assigned.
struct Assignment {
    std::size_t staff = 0;  // within the part
    u16 layer = 0;
    bool moved = false;  // since the score was read
};

class Planner {
public:
    Planner(const ImportedScore& score, const ScorePart& part, std::size_t measure)
        : m_score{score},
          m_part{part},
          m_original{part.measures[measure]},
          m_measure{static_cast<u16>(measure + 1)} {}

    MeasurePlan Build(std::vector<VoiceStream> streams) {
        const bool hasChanged =
            std::ranges::any_of(streams, [](const VoiceStream& stream) { return stream.changed; });
        const std::vector<CrossingEnds> crossing =
            hasChanged ? CrossingEndsOf(m_score, m_part, m_measure) : std::vector<CrossingEnds>{};
        for (VoiceStream& stream : streams) {
            if (stream.changed) {
                MendBeams(crossing, stream.events);
            }
            Draft& draft = m_drafts.emplace_back();
            draft.rank = {stream.rank, 0};
            draft.stream.voice = std::move(stream.voice);
            draft.readAs = std::move(stream.readAs);
            draft.stream.events = std::move(stream.events);
            draft.slots.resize(draft.stream.events.size() + 1);
        }
        ReadAssignments();
        PlaceItems();
        for (Draft& draft : m_drafts) {
            LaySteps(draft);
        }
        LayStreams();
        return std::move(m_plan);
    }

private:
    using Rank = std::pair<u32, u32>;  // entries read before, place among what follows them
    struct Draft {
        PlannedStream stream;
        std::vector<std::vector<PlannedStep>> slots;  // before each event, and after the last
        std::vector<PlannedStep> behind;              // what needs moves of its own
        std::string readAs;                           // the voice that was read, where another
        Rank rank;
    };

    void ReadAssignments() {
        const RecordStore::Table& expressions = m_score.document->Records().OfTag(Tag::kExpression);
        for (auto at = expressions.lower_bound(RecordKey::Other(m_measure));
             at != expressions.end() && at->first.OtherItem() == m_measure; ++at) {
            const auto expression = FromBytes<MyExpressionAssign>(at->second);
            const u16 layer = expression.layer & ExpressionLayer::kLayerMask;
            const auto staff = std::ranges::find(m_part.staves, static_cast<u16>(expression.staff),
                                                 &StaffVoices::staff);
            if (staff == m_part.staves.end() || layer == 0) {
                continue;
            }
            const Bytes* was = m_score.document->ImportedRecord(Tag::kExpression, at->first);
            const bool moved =
                was != nullptr && FromBytes<MyExpressionAssign>(*was).layer != expression.layer;
            m_assignments[ItemOfExpression(at->second)] = {
                static_cast<std::size_t>(staff - m_part.staves.begin()),
                static_cast<u16>(layer - 1), moved};
        }
    }

    void PlaceItems() {
        for (std::size_t i = 0; i < m_original.items.size(); ++i) {
            const MeasureItem& item = m_original.items[i];
            const auto assignment = m_assignments.find(i);
            const Assignment* assigned =
                assignment == m_assignments.end() ? nullptr : &assignment->second;
            if (item.closesMeasure) {
                m_closing.push_back({nullptr, i, item.time});
            } else if (assigned != nullptr && assigned->moved) {
                Draft* draft = DraftOf(*assigned);
                m_plan.itemVoices.push_back(
                    {i, draft != nullptr ? draft->stream.voice : NameOf(*assigned)});
                PlaceIn(draft != nullptr ? *draft : FallbackFor(item), i);
            } else if (item.lastEntry == 0 && item.time.IsZero()) {
                m_head.push_back({nullptr, i, item.time});
            } else if (item.before == 0 && item.after == 0) {
                PlaceBetween(i);
            } else {
                Draft& draft = StreamOf(item);
                if (assigned != nullptr && draft.readAs == NameOf(*assigned)) {
                    m_plan.itemVoices.push_back({i, draft.stream.voice});
                }
                PlaceIn(draft, i);
            }
        }
    }

    std::string NameOf(const Assignment& place) const {
        return VoiceName(m_part, m_measure, place.staff, place.layer);
    }

    // The layer's own voice is preferred to a guest in it.
    Draft* DraftOf(const Assignment& place) {
        const std::string name = NameOf(place);
        Draft* found = nullptr;
        for (Draft& draft : m_drafts) {
            const bool isThere =
                std::ranges::any_of(draft.stream.events, [&place](const PlannedEvent& event) {
                    return event.staff == place.staff && event.layer == place.layer;
                });
            const bool isOwn = draft.stream.voice == name || draft.readAs == name;
            found = isThere && (found == nullptr || isOwn) ? &draft : found;
        }
        return found;
    }

    // Items between <backup> and <forward> stay between the streams.
    void PlaceBetween(std::size_t index) {
        const MeasureItem& item = m_original.items[index];
        const bool goesOn = index > 0 && m_between == index - 1;
        m_between = index;
        if (!goesOn || m_original.items[index - 1].lastEntry != item.lastEntry) {
            Draft& block = m_blocks.emplace_back();
            block.rank = {item.lastEntry, static_cast<u32>(m_blocks.size())};
        }
        m_blocks.back().behind.push_back({nullptr, index, item.time});
    }

    // The stream that the item's entry is in; else whatever fits.
    Draft& StreamOf(const MeasureItem& item) {
        for (Draft& draft : m_drafts) {
            for (const PlannedEvent& event : draft.stream.events) {
                const u32 entry = event.time.entry->entryNumber;
                if (entry == (item.before != 0 ? item.before : item.after)) {
                    return draft;
                }
            }
        }
        return FallbackFor(item);
    }

    // A stream on the item's staff where something begins or ends at its time, if any; of such
    // the one with its voice.
    Draft& FallbackFor(const MeasureItem& item) {
        const std::string voice = Escaped(item.voice);
        Draft* best = nullptr;
        int bestValue = -1;
        for (Draft& draft : m_drafts) {
            int value = draft.stream.voice == voice ? 1 : 0;
            for (const PlannedEvent& event : draft.stream.events) {
                const bool isOnStaff = m_part.staves[event.staff].staff == item.staff;
                const bool touches = event.time.start == item.time || event.End() == item.time;
                value = std::max(value, (isOnStaff ? 4 : 0) + (touches ? 2 : 0) +
                                            (draft.stream.voice == voice ? 1 : 0));
            }
            if (value > bestValue) {
                best = &draft;
                bestValue = value;
            }
        }
        if (best == nullptr) {
            Draft& block = m_blocks.emplace_back();
            block.rank = {item.lastEntry, static_cast<u32>(m_blocks.size())};
            return block;
        }
        return *best;
    }

    // At the item's entry, when its time is right there; else by its time. Inside an entry there is
    // no place for it: then it comes behind the stream, with moves of its own, as not all readers
    // take an <offset> into account.
    void PlaceIn(Draft& draft, std::size_t index) {
        const MeasureItem& item = m_original.items[index];
        const Events& events = draft.stream.events;
        const auto fits = [&](std::size_t slot) {
            return (slot == 0 || !(item.time < events[slot - 1].End())) &&
                   (slot == events.size() || !(events[slot].time.start < item.time));
        };
        std::size_t slot = events.size();
        for (std::size_t i = 0; i < events.size(); ++i) {
            const u32 entry = events[i].time.entry->entryNumber;
            slot = item.before != 0 && entry == item.before                     ? i
                   : item.before == 0 && item.after != 0 && entry == item.after ? i + 1
                                                                                : slot;
        }
        if (!fits(slot)) {
            slot = 0;
            while (slot < events.size() && events[slot].time.start < item.time) {
                ++slot;
            }
        }
        const bool isAtEntry = !events.empty() && fits(slot);
        (isAtEntry ? draft.slots[slot] : draft.behind).push_back({nullptr, index, item.time});
    }

    // What ends with the stream may end a line that begins inside its last entries.
    static void LaySteps(Draft& draft) {
        std::vector<PlannedStep>& steps = draft.stream.steps;
        steps.clear();
        for (std::size_t i = 0; i < draft.slots.size(); ++i) {
            std::vector<PlannedStep> items = draft.slots[i];
            if (i + 1 == draft.slots.size()) {
                items.insert(items.begin(), draft.behind.begin(), draft.behind.end());
            }
            std::ranges::stable_sort(items, std::less{}, &PlannedStep::time);
            steps.insert(steps.end(), items.begin(), items.end());
            if (i < draft.stream.events.size()) {
                const PlannedEvent& event = draft.stream.events[i];
                steps.push_back({&event, 0, event.time.start});
            }
        }
        if (draft.slots.empty()) {
            steps = draft.behind;
        }
    }

    void LayStreams() {
        for (Draft& block : m_blocks) {
            LaySteps(block);
            m_drafts.push_back(std::move(block));
        }
        std::ranges::stable_sort(m_drafts, {}, &Draft::rank);
        AddItems(m_head);
        for (const std::size_t index : OrderOfDrafts()) {
            m_plan.streams.push_back(std::move(m_drafts[index].stream));
        }
        AddItems(m_closing);
    }

    // A direction that would end a line before it starts moves to the stream in which it starts.
    std::vector<std::size_t> OrderOfDrafts() {
        std::set<std::size_t> moved;
        for (;;) {
            std::vector<std::size_t> order = OrderOfStreams(m_drafts.size(), Links());
            const EarlyStop early = FindEarlyStop(order, moved);
            if (early.stop == nullptr) {
                return order;
            }
            moved.insert(early.item);
            TakeOut(*early.stop, early.item);
            PlaceIn(*early.start, early.item);
            LaySteps(*early.stop);
            LaySteps(*early.start);
        }
    }

    struct EarlyStop {
        Draft* stop = nullptr;  // null: there is none
        Draft* start = nullptr;
        std::size_t item = 0;  // where the line stops
    };

    EarlyStop FindEarlyStop(const std::vector<std::size_t>& order,
                            const std::set<std::size_t>& moved) {
        std::map<u32, std::pair<Draft*, std::size_t>> stops;  // by line
        for (const std::size_t index : order) {
            Draft& draft = m_drafts[index];
            for (const WrittenEnd& end : EndsOf(draft)) {
                const auto stop = stops.find(end.line);
                if (end.role == LineRole::kStart && stop != stops.end() &&
                    stop->second.first != &draft) {
                    return {stop->second.first, &draft, stop->second.second};
                }
            }
            for (const auto& [line, item] : StopsOfDirections(draft)) {
                if (!moved.contains(item)) {
                    stops[line] = {&draft, item};
                }
            }
        }
        return {};
    }

    // Lines that stop in a direction of the draft, and the directions.
    std::vector<std::pair<u32, std::size_t>> StopsOfDirections(const Draft& draft) const {
        std::vector<std::pair<u32, std::size_t>> stops;
        for (const PlannedStep& step : draft.stream.steps) {
            std::vector<WrittenEnd> ends;
            if (step.event == nullptr) {
                const MeasureItem& item = m_original.items[step.item];
                AddEndsOfText(m_part.lines, item.begin, item.end, ends);
            }
            for (const WrittenEnd& end : ends) {
                if (end.role == LineRole::kStop) {
                    stops.emplace_back(end.line, step.item);
                }
            }
        }
        return stops;
    }

    static void TakeOut(Draft& draft, std::size_t item) {
        const auto isIt = [item](const PlannedStep& step) { return step.item == item; };
        for (std::vector<PlannedStep>& slot : draft.slots) {
            std::erase_if(slot, isIt);
        }
        std::erase_if(draft.behind, isIt);
    }

    std::vector<WrittenEnd> EndsOf(const Draft& draft) const {
        std::vector<WrittenEnd> ends;
        AddEndsOfStream(m_score, m_part, m_original, draft.stream, ends);
        return ends;
    }

    void AddItems(std::vector<PlannedStep>& items) {
        if (!items.empty()) {
            m_plan.streams.emplace_back().steps = std::move(items);
        }
    }

    // Of the lines and ties that start in one stream and stop in another one of the measure.
    std::vector<StreamLink> Links() const {
        std::map<u32, std::size_t> starts;
        std::map<u32, std::size_t> stops;
        std::set<u32> ofDirections;
        for (std::size_t i = 0; i < m_drafts.size(); ++i) {
            for (const WrittenEnd& end : EndsOf(m_drafts[i])) {
                if (end.role == LineRole::kStart) {
                    starts[end.line] = i;
                } else if (end.role == LineRole::kStop) {
                    stops[end.line] = i;
                }
            }
            for (const auto& [line, item] : StopsOfDirections(m_drafts[i])) {
                ofDirections.insert(line);
            }
        }
        std::vector<StreamLink> links;
        for (const auto& [line, start] : starts) {
            const auto stop = stops.find(line);
            if (stop != stops.end() && stop->second != start) {
                links.push_back({start, stop->second, ofDirections.contains(line)});
            }
        }
        std::vector<const PlannedStream*> streams;
        for (const Draft& draft : m_drafts) {
            streams.push_back(&draft.stream);
        }
        for (const TieLink& tie : TieLinksOf(streams)) {
            links.push_back({tie.from, tie.to, false});
        }
        return links;
    }

    const ImportedScore& m_score;
    const ScorePart& m_part;
    const PartMeasure& m_original;
    u16 m_measure;
    std::map<std::size_t, Assignment> m_assignments;  // by item
    std::vector<Draft> m_drafts;
    std::vector<Draft> m_blocks;
    std::size_t m_between = static_cast<std::size_t>(-1);  // the last item between streams
    std::vector<PlannedStep> m_head;
    std::vector<PlannedStep> m_closing;
    MeasurePlan m_plan;
};

}  // namespace

bool MeasurePlan::HasNotes() const noexcept {
    return std::ranges::any_of(streams,
                               [](const PlannedStream& stream) { return !stream.events.empty(); });
}

MeasurePlan PlanMeasure(const ImportedScore& score, const ScorePart& part, std::size_t measure) {
    return Planner{score, part, measure}.Build(StreamsOf(score, part, measure));
}

void AddEndsOfStream(const ImportedScore& score, const ScorePart& part, const PartMeasure& measure,
                     const PlannedStream& stream, std::vector<WrittenEnd>& ends) {
    for (const PlannedStep& step : stream.steps) {
        const auto carried = step.event == nullptr
                                 ? score.carried.end()
                                 : score.carried.find(u32{step.event->time.entry->entryNumber});
        if (carried != score.carried.end()) {
            AddEndsOfText(part.lines, carried->second.begin, carried->second.end, ends);
        } else if (step.event != nullptr) {
            AddEndsOfEntry(*step.event->time.entry, step.event->texts, part.lines, score.fragments,
                           ends);
        } else {
            const MeasureItem& item = measure.items[step.item];
            AddEndsOfText(part.lines, item.begin, item.end, ends);
        }
    }
}

}  // namespace standin
