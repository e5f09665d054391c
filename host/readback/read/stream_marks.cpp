#include "host/readback/read/stream_marks.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "host/readback/read/voice_order.h"

namespace standin::readback {
namespace {

// Whether they are parts of one <chord> over two staves.
bool AreOneChord(const Score& score, u32 a, u32 b) {
    const auto headOf = [&score](u32 index) {
        const u32 head = score.chords[index].head;
        return head == kNone ? index : head;
    };
    return headOf(a) == headOf(b);
}

// Of one voice in one measure, by onset.
void MarkSharedTime(Score& score, const std::vector<u32>& voice) {
    std::map<u32, u32> lastOfStaff;  // the chord that ends latest so far
    for (const u32 index : voice) {
        Chord& chord = score.chords[index];
        for (const auto& [staff, last] : lastOfStaff) {
            Chord& other = score.chords[last];
            const bool sameStaff = staff == chord.place.staff;
            if (chord.place.onset < other.End() && !AreOneChord(score, index, last)) {
                bool Chord::*mark = sameStaff ? &Chord::sharesTime : &Chord::onTwoStaves;
                chord.*mark = true;
                other.*mark = true;
            }
        }
        const auto [last, isFirst] = lastOfStaff.try_emplace(chord.place.staff, index);
        if (!isFirst && score.chords[last->second].End() < chord.End()) {
            last->second = index;
        }
    }
}

void MarkSharedTime(Score& score) {
    std::map<std::tuple<u32, u32, u32>, std::vector<u32>> voices;  // by part, measure, voice
    for (u32 i = 0; i < score.chords.size(); ++i) {
        const Chord& chord = score.chords[i];
        if (!chord.duration.IsZero()) {
            voices[{chord.part, chord.place.measure, chord.voice}].push_back(i);
        }
    }
    for (auto& [key, voice] : voices) {
        std::ranges::stable_sort(voice, [&score](u32 a, u32 b) {
            return score.chords[a].place.onset < score.chords[b].place.onset;
        });
        MarkSharedTime(score, voice);
    }
}

std::string TimeText(ExactTime time) {
    return std::to_string(time.InUnits());
}

// A tuplet by when it starts and ends: the staff does not count, since its first note may have
// moved to another voice and left it to a rest on another staff.
u32 NameOfTuplet(const Chord& first, const Chord& last, Texts& texts) {
    return texts.Of("tuplet " + std::to_string(first.place.measure) + ' ' +
                    TimeText(first.place.onset) + ' ' + std::to_string(last.place.measure) + ' ' +
                    TimeText(last.End()));
}

void MarkTuplets(Score& score, Texts& texts) {
    const u32 tuplet = texts.Of("tuplet");
    for (const Line& line : score.lines) {
        const LineEnd& start = score.ends[line.start];
        if (start.kind != tuplet || start.chord == kNone) {
            continue;
        }
        const u32 first = start.chord;
        const u32 last = score.ends[line.stop].chord;
        const u32 name = NameOfTuplet(score.chords[first], score.chords[last], texts);
        for (u32 i = first; i <= last; ++i) {
            if (score.chords[i].voice == score.chords[first].voice) {
                score.chords[i].brackets.push_back(name);
            }
        }
    }
    for (Chord& chord : score.chords) {
        std::ranges::sort(chord.brackets);
    }
}

// From a chord to one elsewhere in the text.
struct Run {
    u32 from = 0;  // chords
    u32 to = 0;
};

// Ties within a measure: each end is found by pitch and staff, as readers do.
std::vector<Run> TiesOf(const Score& score) {
    const auto keyOf = [&score](const Note& note, ExactTime time) {
        const Chord& chord = score.chords[note.chord];
        return std::tuple{chord.place.staff, chord.place.measure, time, note.pitch};
    };
    using Key = decltype(keyOf(score.notes[0], ExactTime{}));
    std::map<Key, u32> lastStop;  // by its place in the text
    for (const Note& note : score.notes) {
        if (note.tieStop) {
            lastStop[keyOf(note, score.chords[note.chord].place.onset)] = note.chord;
        }
    }
    std::vector<Run> ties;
    for (const Note& note : score.notes) {
        const auto stop =
            note.tieStart
                ? lastStop.find(keyOf(note, score.chords[note.chord].place.onset + note.duration))
                : lastStop.end();
        if (stop != lastStop.end()) {
            ties.push_back({note.chord, stop->second});
        }
    }
    return ties;
}

VoiceOrder& OrderAt(VoiceOrders& orders, const Chord& chord) {
    return orders[{chord.part, chord.place.measure}];
}

void Want(const Score& score, const Run& run, VoiceOrders& orders) {
    const Chord& from = score.chords[run.from];
    const Chord& to = score.chords[run.to];
    if (from.place.measure == to.place.measure && from.voice != to.voice) {
        OrderAt(orders, from).Want(from.voice, to.voice);
    }
}

void MarkOrder(Score& score) {
    const std::vector<Run> ties = TiesOf(score);
    VoiceOrders orders;
    for (const Run& tie : ties) {
        Want(score, tie, orders);
    }
    const auto runOf = [&score](const Line& line) {
        return Run{score.ends[line.start].chord, score.ends[line.stop].chord};
    };
    for (const Line& line : score.lines) {
        if (runOf(line).from != kNone && runOf(line).to != kNone) {
            Want(score, runOf(line), orders);
        }
    }
    const auto allows = [&](const Run& run) {
        const Chord& from = score.chords[run.from];
        const Chord& to = score.chords[run.to];
        return from.voice == to.voice || OrderAt(orders, from).Allows(from.voice, to.voice);
    };
    for (const Run& tie : ties) {
        Chord& chord = score.chords[tie.from];
        const bool backward = tie.to < tie.from;
        chord.tieRunsBackward = chord.tieRunsBackward || backward;
        chord.tieCouldRunForward = chord.tieCouldRunForward || (backward && allows(tie));
    }
    for (Line& line : score.lines) {
        const Run run = runOf(line);
        line.couldRunForward = run.from == kNone || run.to == kNone || allows(run);
    }
}

void MarkLyrics(Score& score) {
    for (Chord& chord : score.chords) {
        std::set<u32> numbers;
        for (u32 i = chord.notes.begin; i < chord.notes.end; ++i) {
            const Range& range = score.notes[i].attachments;
            for (u32 at = range.begin; at < range.end; ++at) {
                const u32 number = score.attachments[at].lyric;
                chord.repeatsLyric =
                    chord.repeatsLyric || (number != kNone && !numbers.insert(number).second);
            }
        }
    }
}

}  // namespace

void MarkStreams(Score& score, Texts& texts) {
    MarkSharedTime(score);
    MarkTuplets(score, texts);
    MarkOrder(score);
    MarkLyrics(score);
}

}  // namespace standin::readback
