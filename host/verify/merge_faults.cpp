#include "host/verify/merge_faults.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

#include "host/score/application.h"
#include "host/score/records/tags.h"
#include "host/score/selection.h"
#include "host/score/time/entry_times.h"
#include "host/texts/texts.h"
#include "host/verify/changed_places.h"
#include "host/verify/frame_faults.h"
#include "host/verify/score_facts.h"

namespace standin {
namespace {

// Of an expression's record; the others are filled after each load.
constexpr std::size_t kHostsBytes = offsetof(MyExpressionAssign, hasPosition);

using Facts = std::vector<EntryFacts>;
using Lines = std::vector<std::string>;

bool Includes(const Lines& all, const Lines& some) {
    return std::includes(all.begin(), all.end(), some.begin(), some.end());
}

bool IsShapeEnd(const std::string& attachment) {
    return attachment.find(" of shape ") != std::string::npos;
}

// The appearance of a rest, which is lost when the rest is filled.
bool IsLook(const std::string& attachment) {
    return attachment.starts_with("edST ") || attachment.starts_with("edub ") ||
           attachment.starts_with("edAS ");
}

// Its last staff is looked up in the start's list if it is there, else in the score's own.
EREGION InOneStaffList(const Document& document, EREGION region) {
    if (region.startStaffList != region.endStaffList) {
        const auto slotIn = [&, list = u16{region.endStaffList}](i16 slot, u16 other) {
            return document.SlotOfStaff(document.StaffInSlot(slot, list), other);
        };
        const i16 last = slotIn(region.endSlot, region.startStaffList);
        region.endSlot = last != 0 ? last : slotIn(region.endSlot, 0);
        region.endStaffList = region.startStaffList;
    }
    return region;
}

class Comparison {
public:
    Comparison(const Document& document, const DocumentContent& before,
               const DocumentContent& after, const MergeOptions& options)
        : m_document{document},
          m_before{before},
          m_after{after},
          m_options{options},
          m_region{InOneStaffList(document, *document.selection)},
          m_changed{ChangedPlaces(before, after)},
          m_factsBefore{FactsOf(before, m_changed)},
          m_factsAfter{FactsOf(after, m_changed)} {
        for (const EntryFacts& fact : m_factsAfter) {
            m_byMeasure[MeasureOf(fact.key)].push_back(&fact);
            m_byTime[{MeasureOf(fact.key), i32{fact.entry->elapsedTime}}].push_back(&fact);
        }
    }

    Lines Run() {
        CompareNotes();
        CompareCompany();
        CompareAdded();
        CompareExpressions();
        CompareOtherRecords();
        CheckLayers();
        CheckUnselected();
        AddFaultsOfFrames(m_before, m_after, m_faults);
        return std::move(m_faults);
    }

private:
    using FactList = std::vector<const EntryFacts*>;
    // What an expression names: a layer of a measure, a time in it, a grace entry's place or 0.
    using Streams = std::map<std::tuple<FrameKey, i32, i16>, FactList>;

    static Streams StreamsOf(const Facts& facts) {
        Streams streams;
        FrameKey frame{};
        i16 graceIndex = 0;
        for (const EntryFacts& fact : facts) {
            const bool isGrace = (fact.entry->flags & EntryFlag::kGrace) != 0;
            graceIndex = static_cast<i16>(!isGrace ? 0 : fact.key == frame ? graceIndex + 1 : 1);
            frame = fact.key;
            streams[{frame, i32{fact.entry->elapsedTime}, graceIndex}].push_back(&fact);
        }
        return streams;
    }

    bool IsSelected(FrameKey key) const {
        return HoldsFrame(m_region, m_document.SlotOfStaff(key.staff, m_region.startStaffList),
                          key.measure);
    }

    bool IsSource(u16 layer) const {
        return layer != m_options.destination &&
               (m_options.source == kAllLayers || m_options.source == layer);
    }

    // An entry's start in the units of selections.
    i32 Position(const EntryFacts& fact) const {
        const i64 nominal = m_document.MeasureDuration(0, fact.key.measure);
        const i64 staff = m_document.MeasureDuration(fact.key.staff, fact.key.measure);
        return static_cast<i32>((nominal * fact.entry->elapsedTime + staff / 2) / staff);
    }

    bool IsBeforeSelection(const EntryFacts& fact) const {
        return fact.key.measure == m_region.startMeasure && Position(fact) < m_region.startPosition;
    }

    bool IsSelected(u16 measure, const MyExpressionAssign& expression) const {
        return HoldsPosition(m_region, measure, PositionOf(expression));
    }

    void Add(const EntryFacts& fact, const std::string& what) {
        m_faults.push_back(fact.Place() + ": " + what);
    }

    void CompareNotes() {
        using Note = std::pair<const EntryFacts*, const std::string*>;
        using Notes = std::vector<Note>;
        const auto content = [](const Note& note) {
            return std::tuple{MeasureOf(note.first->key), std::string_view{note.first->time},
                              std::string_view{*note.second}};
        };
        const auto collect = [&content](const Facts& facts) {
            Notes notes;
            for (const EntryFacts& fact : facts) {
                for (const std::string& note : fact.notes) {
                    notes.emplace_back(&fact, &note);
                }
            }
            std::ranges::sort(notes, {}, content);
            return notes;
        };
        const Notes before = collect(m_factsBefore);
        const Notes after = collect(m_factsAfter);
        const auto addMissing = [&](const Notes& some, const Notes& others, Text what) {
            Notes missing;
            std::ranges::set_difference(some, others, std::back_inserter(missing), {}, content,
                                        content);
            for (const auto& [fact, note] : missing) {
                m_faults.push_back(Say(what, {fact->Place() + ": " + *note}));
            }
        };
        addMissing(before, after, Text::kLost);
        addMissing(after, before, Text::kFaultAdded);
    }

    // Afterwards each entry's notes must be in one entry, with all attachments.
    void CompareCompany() {
        for (const EntryFacts& fact : m_factsBefore) {
            if (fact.IsNote() ? !HasCompany(fact) : !RestKeepsAll(fact)) {
                Add(fact, Say(Text::kFaultParted,
                              {fact.IsNote() ? fact.notes.front() : Say(Text::kFaultARest, {}),
                               Joined(fact.attachments)}));
            }
        }
    }

    static std::string Joined(const Lines& lines) {
        std::string text;
        for (const std::string& line : lines) {
            text += (text.empty() ? "" : ", ") + line;
        }
        return text.empty() ? Say(Text::kFaultItsNotes, {}) : text;
    }

    // What begins with it afterwards.
    const FactList& AtTimeOf(const EntryFacts& fact) {
        return m_byTime[{MeasureOf(fact.key), i32{fact.entry->elapsedTime}}];
    }

    bool HasCompany(const EntryFacts& fact) {
        const FactList& candidates = AtTimeOf(fact);
        return std::ranges::any_of(candidates, [&fact](const EntryFacts* other) {
            return other->IsNote() && other->time == fact.time &&
                   other->entry->duration == fact.entry->duration &&
                   Includes(other->notes, fact.notes) &&
                   Includes(other->attachments, fact.attachments);
        });
    }

    // A line that ended on a rest may end on the music that replaced it. After several layers, that
    // music may begin earlier.
    bool FitsShapeEnd(const EXENTRY& rest, const EXENTRY& now) const {
        return rest.elapsedTime >= now.elapsedTime &&
               (rest.elapsedTime < std::max(EndOf(now), 1) || m_options.source == kAllLayers);
    }

    // Other attachments of a rest must be on a rest at the same time.
    bool RestKeepsAll(const EntryFacts& fact) {
        const auto isKept = [&](const std::string& attachment) {
            const FactList& candidates =
                IsShapeEnd(attachment) ? m_byMeasure[MeasureOf(fact.key)] : AtTimeOf(fact);
            return IsLook(attachment) ||
                   std::ranges::any_of(candidates, [&](const EntryFacts* other) {
                       const bool fits = IsShapeEnd(attachment)
                                             ? FitsShapeEnd(*fact.entry, *other->entry)
                                             : !other->IsNote() && other->time == fact.time;
                       return fits && std::ranges::binary_search(other->attachments, attachment);
                   });
        };
        return std::ranges::all_of(fact.attachments, isKept);
    }

    void CompareAdded() {
        std::set<std::string> known;
        std::map<std::string, int> ends;
        for (const EntryFacts& fact : m_factsBefore) {
            for (const std::string& attachment : fact.attachments) {
                known.insert(fact.Place() + (fact.IsNote() ? " note " : " rest ") + attachment);
                ends[attachment] += IsShapeEnd(attachment) ? 1 : 0;
            }
        }
        for (const EntryFacts& fact : m_factsAfter) {
            for (const std::string& attachment : fact.attachments) {
                const bool isEnd = IsShapeEnd(attachment);
                const bool wasThere =
                    isEnd ? --ends[attachment] >= 0
                          : known.contains(fact.Place() + (fact.IsNote() ? " note " : " rest ") +
                                           attachment);
                if (!wasThere) {
                    const Text where = fact.IsNote() ? Text::kFaultAnotherNote : Text::kFaultARest;
                    Add(fact, Say(Text::kFaultOn, {attachment, Say(where, {})}));
                }
            }
        }
    }

    const RecordStore::Table& Records(const DocumentContent& content, u32 tag) const {
        static const RecordStore::Table kNone;
        const auto found = content.records.find(tag);
        return found == content.records.end() ? kNone : found->second;
    }

    static int LayerOf(const MyExpressionAssign& expression) {
        return (expression.layer & ExpressionLayer::kLayerMask) - 1;
    }

    static i32 PositionOf(const MyExpressionAssign& expression) {
        return static_cast<i32>(u32{expression.positionHigh} << 16U | expression.positionLow);
    }

    // The entries at the expression's time in its assigned layer; among grace entries, the one with
    // its grace index.
    static const FactList& Under(const Streams& streams, u16 measure,
                                 const MyExpressionAssign& expression) {
        static const FactList kNone;
        const FrameKey frame{static_cast<u16>(expression.staff), measure,
                             static_cast<u16>(LayerOf(expression))};
        const auto found =
            streams.find({frame, PositionOf(expression), i16{expression.graceIndex}});
        return found == streams.end() ? kNone : found->second;
    }

    void CompareExpressions() {
        const RecordStore::Table& now = Records(m_after, Tag::kExpression);
        const RecordStore::Table& before = Records(m_before, Tag::kExpression);
        if (!before.empty()) {
            m_streamsBefore = StreamsOf(m_factsBefore);
            m_streamsAfter = StreamsOf(m_factsAfter);
        }
        for (const auto& [key, bytes] : before) {
            const auto found = now.find(key);
            if (found == now.end()) {
                m_faults.push_back(
                    Say(Text::kFaultExpressionLost, {std::to_string(key.OtherItem())}));
                continue;
            }
            CompareExpression(key.OtherItem(), FromBytes<MyExpressionAssign>(bytes),
                              FromBytes<MyExpressionAssign>(found->second));
        }
        if (now.size() > before.size()) {
            m_faults.push_back(Say(Text::kFaultExpressionAdded, {}));
        }
    }

    void CompareExpression(u16 measure, const MyExpressionAssign& before,
                           const MyExpressionAssign& after) {
        const std::string name =
            Say(Text::kFaultExpression, {std::to_string(measure), std::to_string(LayerOf(before))});
        MyExpressionAssign otherwise = before;
        otherwise.layer = after.layer;
        otherwise.graceIndex = after.graceIndex;  // grace notes of another layer may come first
        if (BytesOf(otherwise).substr(0, kHostsBytes) != BytesOf(after).substr(0, kHostsBytes)) {
            m_faults.push_back(Say(Text::kFaultChanged, {name}));
        }
        // A layer too high for the record becomes no particular layer.
        const bool isNameable = m_options.destination < ExpressionLayer::kLayerMask;
        const int destination = isNameable ? i32{m_options.destination} : -1;
        if (before.layer != after.layer && LayerOf(after) != destination) {
            m_faults.push_back(Say(Text::kFaultOtherLayer, {name}));
        }
        const FactList& music = Under(m_streamsBefore, measure, before);
        const FactList& musicNow = Under(m_streamsAfter, measure, after);
        const bool hangsOnNotes =
            !music.empty() &&
            std::ranges::all_of(music, [](const EntryFacts* was) { return was->IsNote(); });
        if (!hangsOnNotes || !IsSelected(measure, before) || LayerOf(after) < 0) {
            return;  // it may move with a rest of either voice; outside the selection it stays
        }
        const bool found = std::ranges::any_of(music, [&](const EntryFacts* was) {
            return std::ranges::any_of(
                musicNow, [was](const EntryFacts* is) { return Includes(is->notes, was->notes); });
        });
        if (!found) {
            m_faults.push_back(Say(Text::kFaultParted, {name, Joined(music.front()->notes)}));
        }
    }

    // Everything that is neither music nor attached to it must not change.
    void CompareOtherRecords() {
        const auto mayChange = [](u32 tag) {
            return FamilyOf(tag) == RecordFamily::kEntryDetail || tag == Tag::kSmartShape ||
                   tag == Tag::kExpression || tag == Tag::kStaffSystem;
        };
        const auto has = [&](const DocumentContent& all, const DocumentContent& some) {
            return std::ranges::all_of(some.records, [&](const auto& item) {
                return mayChange(item.first) || Records(all, item.first) == item.second;
            });
        };
        if (!has(m_before, m_after) || !has(m_after, m_before)) {
            m_faults.push_back(Say(Text::kFaultOtherRecord, {}));
        }
    }

    void CheckLayers() {
        std::map<u32, const EntryFacts*> before;
        for (const EntryFacts& fact : m_factsBefore) {
            before.emplace(u32{fact.entry->entryNumber}, &fact);
        }
        std::map<u32, const EntryFacts*> after;
        for (const EntryFacts& fact : m_factsAfter) {
            if (!after.emplace(u32{fact.entry->entryNumber}, &fact).second) {
                Add(fact, Say(Text::kFaultTwice, {}));
            }
        }
        for (const auto& [number, was] : before) {
            const auto found = after.find(number);
            const EntryFacts* is = found == after.end() ? nullptr : found->second;
            CheckEntry(*was, is);
        }
    }

    void CheckEntry(const EntryFacts& was, const EntryFacts* is) {
        const bool isSource = IsSource(was.key.layer);
        const bool isInPlace = is != nullptr && is->IsNote() && is->key == was.key;
        if (was.IsNote() && (!isSource || IsBeforeSelection(was)) && !isInPlace) {
            Add(was, Say(Text::kFaultLeftLayer, {std::to_string(was.key.layer)}));
        }
        if (is != nullptr && was.IsNote() && !is->IsNote()) {
            const bool wasHidden = (was.entry->flags & EntryFlag::kIgnore) != 0;
            const bool isHidden = (is->entry->flags & EntryFlag::kIgnore) != 0;
            if (isHidden != (wasHidden || m_options.hideAddedRests != 0)) {
                Add(was, Say(isHidden ? Text::kFaultRestHidden : Text::kFaultRestShown, {}));
            }
        }
        if (isInPlace && was.key.layer != m_options.destination && is->notes != was.notes) {
            Add(was, Say(Text::kFaultOtherChord, {}));
        }
    }

    void CheckUnselected() {
        std::set<FrameKey> keys;
        for (const DocumentContent* content : {&m_before, &m_after}) {
            for (const auto& [key, frame] : content->frames) {
                if (m_changed.contains(MeasureOf(key))) {
                    keys.insert(key);
                }
            }
        }
        for (const FrameKey key : keys) {
            const bool mayChange =
                IsSelected(key) && (key.layer == m_options.destination || IsSource(key.layer));
            const auto was = m_before.frames.find(key);
            const auto is = m_after.frames.find(key);
            const bool both = was != m_before.frames.end() && is != m_after.frames.end();
            if (!mayChange && !(both && SameEntries(was->second.entries, is->second.entries))) {
                m_faults.push_back(WordsFor(key) + ": " + Say(Text::kFaultOutOfTurn, {}));
            }
        }
    }

    const Document& m_document;
    const DocumentContent& m_before;
    const DocumentContent& m_after;
    const MergeOptions& m_options;
    const EREGION m_region;
    const StaffMeasures m_changed;  // all that the facts are about
    const Facts m_factsBefore;
    const Facts m_factsAfter;
    Streams m_streamsBefore;  // where there are expressions
    Streams m_streamsAfter;
    // After the merge:
    std::map<StaffMeasure, FactList> m_byMeasure;
    std::map<std::pair<StaffMeasure, i32>, FactList> m_byTime;
    Lines m_faults;
};

}  // namespace

std::vector<std::string> FaultsOfMerge(const Document& document, const DocumentContent& before,
                                       const DocumentContent& after, const MergeOptions& options) {
    return Comparison{document, before, after, options}.Run();
}

DocumentContent StartOfMerge(Document& document, const MergeOptions& options) {
    if (options.mode == 0) {
        return document.Content();
    }
    const i16 active = App().activeLayer;
    document.BeginEdit(u"clear");
    App().activeLayer = static_cast<i16>(options.destination);
    RunMenuCommand(MenuCommand::kClearLayer);
    DocumentContent cleared = document.Content();
    document.CancelEdit();
    App().activeLayer = active;
    return cleared;
}

}  // namespace standin
