// Which entries of a measure form tuplets: those between the two ends of a bracket and, if the file
// gives ratios without brackets, as many as fill one tuplet.
#pragma once

#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "host/musicxml/fragments.h"
#include "host/musicxml/read/entry_draft.h"
#include "host/score/records/record_store.h"
#include "shell/host/host_records.h"

namespace standin {

// A tuplet of one voice in one measure. It is complete on each staff that the voice uses: gaps
// replace the music on the other staves.
struct TupletGroup {
    std::vector<EntryDraft*> entries;  // except grace notes; in the file's order, at least one
    TupletGroup* outer = nullptr;
    std::vector<TupletGroup*> inner;
    Rational start{};
    Rational end{};
    // Written time inside for each unit of time in the measure. 1 where the entries have no ratio
    // in common: then each keeps its own, and the group only holds them together.
    Rational ratio{1, 1};
    EDTTuplet2005 record{};
    TupletText text{};                // none for one without brackets
    EntryDraft* stopsAt = nullptr;    // where its bracket stops
    FragmentId timeModification = 0;  // of its entries

    TupletGroup& Outermost() { return outer == nullptr ? *this : outer->Outermost(); }
    bool SharesRatio() const { return !(ratio == Rational{1, 1}); }
};

// The time that an entry occupies in its line: that of its whole tuplet.
inline Rational SpanStart(const EntryDraft& draft) {
    return draft.tuplet != nullptr ? draft.tuplet->Outermost().start : draft.start;
}
inline Rational SpanEnd(const EntryDraft& draft) {
    return draft.tuplet != nullptr ? draft.tuplet->Outermost().end : draft.End();
}

class TupletGroups {
public:
    // crossing: receives the measures of the brackets that cross a barline.
    TupletGroups(Fragments& fragments, std::map<u32, std::pair<u16, u16>>& crossing)
        : m_fragments{fragments}, m_crossing{crossing} {}

    // Finds the groups of a measure and names them in its entries. Groups last until the next
    // call; measures come in order.
    void Find(std::deque<EntryDraft>& drafts, u16 measure);

    // Dissolves an outermost group and all inside it: each entry keeps its own time, and brackets
    // keep their ends.
    static void Dissolve(TupletGroup& group);

    // The bytes of the group's record.
    static Bytes RecordOf(const TupletGroup& group);

private:
    struct BracketEnd {
        std::size_t entry = 0;  // of the voice
        std::string number;
        FragmentId element = 0;
        u32 bracket = 0;
        u16 measure = 0;
    };
    struct BracketPair {
        BracketEnd start;
        BracketEnd stop;
    };
    using Voice = std::vector<EntryDraft*>;

    std::vector<BracketPair> PairBrackets(const Voice& voice, u16 measure);
    void KeepOpenBrackets(const Voice& voice, std::vector<BracketEnd>& open,
                          std::vector<BracketEnd>& stops, u16 measure,
                          std::vector<BracketPair>& pairs);
    void GroupBrackets(const Voice& voice, std::vector<BracketPair> pairs);
    void GroupRatios(const Voice& voice);
    TupletGroup& NewGroup(Voice entries, TupletGroup* outer);

    Fragments& m_fragments;
    std::map<u32, std::pair<u16, u16>>& m_crossing;
    std::map<std::string, std::vector<BracketEnd>, std::less<>> m_open;  // by voice
    std::deque<TupletGroup> m_groups;
    u32 m_brackets = 0;  // numbers given
};

}  // namespace standin
