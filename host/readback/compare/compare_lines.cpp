// Whether slurs, hairpins, tuplets and other lines still have the same ends.
#include <algorithm>
#include <optional>
#include <string>
#include <tuple>

#include "host/readback/compare/comparison.h"

namespace standin::readback {
namespace {

// An end by kind and place. Grace notes are distinguished from other notes at their time.
struct EndKey {
    u32 kind;
    LineEnd::Type type;
    GroupKey place;
    u32 text;

    bool operator==(const EndKey&) const = default;
    bool operator<(const EndKey& other) const {
        return std::tie(kind, type, place, text) <
               std::tie(other.kind, other.type, other.place, other.text);
    }
};

EndKey KeyOf(const Side& side, const LineEnd& end) {
    const bool isGrace = end.chord != kNone && side.score.chords[end.chord].grace != 0;
    return {end.kind, end.type, {end.place, isGrace}, end.text};
}

using LineKey = std::pair<EndKey, EndKey>;  // start, stop

LineKey KeyOf(const Side& side, const Line& line) {
    return {KeyOf(side, side.score.ends[line.start]), KeyOf(side, side.score.ends[line.stop])};
}

using Stretch = std::tuple<u32, u32, u32>;  // kind, staff, measure

Stretch MeasureOf(const LineEnd& end) {
    return {end.kind, end.place.staff, end.place.measure};
}

class LineComparison {
public:
    explicit LineComparison(const Comparison& comparison)
        : m_all{comparison},
          m_before{comparison.before},
          m_after{comparison.after},
          m_isFound(m_after.score.lines.size()) {
        for (u32 i = 0; i < m_after.score.lines.size(); ++i) {
            const LineKey key = KeyOf(m_after, m_after.score.lines[i]);
            m_linesAfter.emplace(key, i);
            m_byStart.emplace(MeasureOf(m_after.score.ends[m_after.score.lines[i].start]), i);
        }
        for (const Line& line : m_before.score.lines) {
            if (line.stopStandsFirst) {
                m_stopFirstBefore.insert(KeyOf(m_before, line));
            }
        }
        Collect(m_before, m_endsBefore, m_looseBefore);
        Collect(m_after, m_endsAfter, m_looseAfter);
    }

    void Run() {
        for (const Line& line : m_before.score.lines) {
            if (Counts(m_before, line)) {
                Find(line);
            }
        }
        for (u32 i = 0; i < m_after.score.lines.size(); ++i) {
            const Line& line = m_after.score.lines[i];
            if (!Counts(m_after, line)) {
                CheckOrder(line);
            } else if (!m_isFound[i] && !WasLoose(line)) {
                Report(m_after, line, Difference::Kind::kGained);
            }
        }
        CompareLooseEnds();
    }

private:
    using Ends = std::multimap<EndKey, u32>;

    // All ends, and those that have no partner.
    static void Collect(const Side& side, Ends& all, std::map<EndKey, Loose>& loose) {
        for (u32 i = 0; i < side.score.ends.size(); ++i) {
            all.emplace(KeyOf(side, side.score.ends[i]), i);
        }
        for (const LooseEnd& end : side.score.looseEnds) {
            loose.emplace(KeyOf(side, side.score.ends[end.end]), end.why);
        }
    }

    // After a merge, tuplets are compared by their notes, because those of rests may change.
    bool Counts(const Side& side, const Line& line) const {
        return !m_all.merged || m_all.texts[side.score.ends[line.start].kind] != "tuplet";
    }

    bool IsCleared(u32 end) const {
        const u32 chord = m_before.score.ends[end].chord;
        return chord != kNone && m_before.isCleared[chord];
    }

    bool IsAtRest(const LineEnd& end) const {
        return end.chord != kNone && m_before.score.chords[end.chord].rest;
    }

    void Find(const Line& was) {
        const LineKey key = KeyOf(m_before, was);
        bool isFound = false;
        bool stopStandsFirst = true;
        const auto take = [&](u32 index) {
            const Line& is = m_after.score.lines[index];
            if (HasEnd(was.start, is.start) && HasEnd(was.stop, is.stop)) {
                isFound = true;
                m_isFound[index] = true;
                stopStandsFirst = stopStandsFirst && is.stopStandsFirst && is.couldRunForward;
            }
        };
        const auto [first, last] = m_linesAfter.equal_range(key);
        std::for_each(first, last, [&](const auto& entry) { take(entry.second); });
        const LineEnd& start = m_before.score.ends[was.start];
        const LineEnd& stop = m_before.score.ends[was.stop];
        if (!isFound && m_all.merged && (IsAtRest(start) || IsAtRest(stop))) {
            const auto [from, to] = m_byStart.equal_range(MeasureOf(start));
            for (auto at = from; at != to && !isFound; ++at) {
                const Line& is = m_after.score.lines[at->second];
                if (IsMoved(start, m_after.score.ends[is.start]) &&
                    IsMoved(stop, m_after.score.ends[is.stop])) {
                    take(at->second);
                }
            }
        }
        if (!isFound && !IsCleared(was.start) && !IsCleared(was.stop)) {
            m_explained.insert(key.first);
            m_explained.insert(key.second);
            Report(m_before, was, Difference::Kind::kLost, WhyLost(key));
        } else if (isFound && m_all.merged && stopStandsFirst && !was.stopStandsFirst) {
            Report(m_before, was, Difference::Kind::kOther, Text::kStopStandsFirst);
        }
    }

    // Of a tuplet.
    void CheckOrder(const Line& is) const {
        if (is.stopStandsFirst && is.couldRunForward &&
            !m_stopFirstBefore.contains(KeyOf(m_after, is))) {
            Report(m_after, is, Difference::Kind::kOther, Text::kStopStandsFirst);
        }
    }

    // Whether the end is at the same note, or in a chord with it. Marks of single notes stay with
    // the note.
    bool HasEnd(u32 wasIndex, u32 isIndex) const {
        const LineEnd& was = m_before.score.ends[wasIndex];
        const LineEnd& is = m_after.score.ends[isIndex];
        if (was.chord == kNone || is.chord == kNone || IsAtRest(was) || !m_all.merged) {
            return was.chord == is.chord || (was.chord != kNone && is.chord != kNone);
        }
        const std::string& kind = m_all.texts[was.kind];
        const u32 noteId = m_before.noteIds[was.note];
        return kind == "glissando" || kind == "slide" ? m_after.noteIds[is.note] == noteId
                                                      : HasNote(m_after, is.chord, noteId);
    }

    // A mark of a rest may be at the note that replaced it, which may begin earlier.
    bool IsMoved(const LineEnd& was, const LineEnd& is) const {
        const bool isThere =
            was.place == is.place ||
            (IsAtRest(was) && was.place.staff == is.place.staff &&
             was.place.measure == is.place.measure && is.place.onset <= was.place.onset);
        return isThere && was.kind == is.kind && was.text == is.text;
    }

    std::optional<Text> WhyLost(const LineKey& key) const {
        for (const EndKey& end : {key.first, key.second}) {
            const auto loose = m_looseAfter.find(end);
            if (loose != m_looseAfter.end() && !m_looseBefore.contains(end)) {
                return loose->second == Loose::kNumberTakenTwice ? Text::kNumberTakenTwice
                                                                 : Text::kEndsApart;
            }
        }
        return std::nullopt;
    }

    // Ends whose pairing was unknown may be paired now.
    bool WasLoose(const Line& line) const {
        const LineKey key = KeyOf(m_after, line);
        return m_looseBefore.contains(key.first) && m_looseBefore.contains(key.second);
    }

    void CompareLooseEnds() {
        for (const auto& [key, index] : m_endsBefore) {
            const bool isAlone = key.type == LineEnd::Type::kOther || m_looseBefore.contains(key);
            if (isAlone && !m_endsAfter.contains(key) && !IsCleared(index)) {
                ReportEnd(m_before, index, Text::kLost);
            }
        }
        for (const auto& [key, index] : m_endsAfter) {
            if (key.type == LineEnd::Type::kOther && !m_endsBefore.contains(key)) {
                ReportEnd(m_after, index, Text::kGained);
            }
        }
        for (const LooseEnd& loose : m_after.score.looseEnds) {
            const EndKey key = KeyOf(m_after, m_after.score.ends[loose.end]);
            if (!m_looseBefore.contains(key) && !m_explained.contains(key)) {
                ReportEnd(m_after, loose.end,
                          loose.why == Loose::kNumberTakenTwice ? Text::kNumberTakenTwice
                                                                : Text::kWithoutOtherEnd);
            }
        }
    }

    u32 PartOf(const Side& side, const LineEnd& end) const {
        const auto part = std::ranges::find_if(side.score.parts, [&](const Part& candidate) {
            return end.place.staff < candidate.firstStaff + candidate.staves;
        });
        return static_cast<u32>(part - side.score.parts.begin());
    }

    void Report(const Side& side, const Line& line, Difference::Kind kind,
                std::optional<Text> why = std::nullopt) const {
        const LineEnd& start = side.score.ends[line.start];
        const LineEnd& stop = side.score.ends[line.stop];
        const u32 part = PartOf(side, start);
        const std::string& name = m_all.texts[start.kind];
        const std::string until = m_all.findings.TimeWords(part, stop.place);
        std::string words =
            start.note == kNone || stop.note == kNone
                ? Say(Text::kLineUntil, {name, until})
                : Say(Text::kLineBetweenNotes, {name, WordsForNote(m_all, side, start.note),
                                                WordsForNote(m_all, side, stop.note), until});
        if (kind != Difference::Kind::kOther) {
            words = Say(kind == Difference::Kind::kLost ? Text::kLost : Text::kGained, {words});
        }
        if (why) {
            words.append(": ").append(Say(*why));
        }
        m_all.findings.Add(part, start.place, kind, std::move(words));
    }

    void ReportEnd(const Side& side, u32 index, Text what) const {
        const LineEnd& end = side.score.ends[index];
        std::string words = m_all.findings.Quoted(end.text);
        if (end.note != kNone) {
            words = Say(Text::kMarkOf, {words, WordsForNote(m_all, side, end.note)});
        }
        const auto kind = what == Text::kLost     ? Difference::Kind::kLost
                          : what == Text::kGained ? Difference::Kind::kGained
                                                  : Difference::Kind::kOther;
        if (what == Text::kNumberTakenTwice) {
            words.append(": ").append(Say(what));
        } else {
            words = Say(what, {words});
        }
        m_all.findings.Add(PartOf(side, end), end.place, kind, std::move(words));
    }

    const Comparison& m_all;
    const Side& m_before;
    const Side& m_after;
    std::multimap<LineKey, u32> m_linesAfter;
    std::multimap<Stretch, u32> m_byStart;  // likewise, by where the line starts
    std::set<LineKey> m_stopFirstBefore;
    std::vector<bool> m_isFound;
    Ends m_endsBefore;
    Ends m_endsAfter;
    std::map<EndKey, Loose> m_looseBefore;
    std::map<EndKey, Loose> m_looseAfter;
    std::set<EndKey> m_explained;  // ends of lines already reported as lost
};

}  // namespace

void CompareLines(const Comparison& comparison) {
    LineComparison{comparison}.Run();
}

}  // namespace standin::readback
