#include "host/readback/read/line_pairing.h"

#include <tuple>

namespace standin::readback {

namespace {

bool IsLater(const Place& a, const Place& b) {
    return std::tie(a.measure, a.onset) > std::tie(b.measure, b.onset);
}

// On one staff; a grace note comes before the note it leads to.
bool AreAtOneTime(const Score& score, u32 start, u32 stop) {
    const LineEnd& a = score.ends[start];
    const LineEnd& b = score.ends[stop];
    return a.chord != kNone && b.chord != kNone && a.place == b.place &&
           score.chords[a.chord].grace == score.chords[b.chord].grace;
}

}  // namespace

void LinePairing::Add(u32 end) {
    const LineEnd& added = m_score.ends[end];
    if (added.type == LineEnd::Type::kOther) {
        return;
    }
    const bool isStart = added.type == LineEnd::Type::kStart;
    Open& open = m_open[{added.kind, added.number}];
    if (open.ends.empty()) {
        open.ends.push_back(end);
        open.starts = isStart ? 1 : -1;
        return;
    }
    if (open.contested) {
        Contest(open, end);
        return;
    }
    const u32 waiting = open.ends.front();
    const bool waitsForStop = open.starts > 0;
    const u32 start = waitsForStop ? waiting : end;
    const u32 stop = waitsForStop ? end : waiting;
    if (waitsForStop == isStart ||
        (!m_mayBeShort.contains(added.kind) && AreAtOneTime(m_score, start, stop))) {
        Contest(open, end);
    } else if (IsLater(m_score.ends[start].place, m_score.ends[stop].place)) {
        Close(open);
        Add(end);
    } else {
        m_score.lines.push_back({start, stop, !waitsForStop, false});
        open = {};
    }
}

void LinePairing::Contest(Open& open, u32 end) {
    open.contested = true;
    open.ends.push_back(end);
    open.starts += m_score.ends[end].type == LineEnd::Type::kStart ? 1 : -1;
    if (open.starts == 0) {
        Close(open);
    }
}

void LinePairing::Close(Open& open) {
    for (const u32 end : open.ends) {
        const bool isStart = m_score.ends[end].type == LineEnd::Type::kStart;
        const Loose alone = isStart ? Loose::kNoStop : Loose::kNoStart;
        m_score.looseEnds.push_back({end, open.contested ? Loose::kNumberTakenTwice : alone});
    }
    open = {};
}

// A start in a later measure is too late for a waiting stop.
void LinePairing::EndMeasure() {
    for (auto& [key, open] : m_open) {
        if (open.starts < 0) {
            Close(open);
        }
    }
}

void LinePairing::EndPart() {
    for (auto& [key, open] : m_open) {
        Close(open);
    }
    m_open.clear();
}

std::vector<u32> LinePairing::OpenStarts(u32 kind) const {
    std::vector<u32> starts;
    for (auto at = m_open.lower_bound({kind, 0}); at != m_open.end() && at->first.first == kind;
         ++at) {
        if (at->second.starts > 0) {
            starts.push_back(at->second.ends.front());
        }
    }
    return starts;
}

}  // namespace standin::readback
