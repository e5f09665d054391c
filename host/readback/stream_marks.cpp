#include "host/readback/stream_marks.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace standin::readback {
namespace {

// Of one voice in one measure, by onset. On two staves at once it may rest.
void MarkSharedTime(Score& score, const std::vector<u32>& voice) {
    std::map<u32, u32> lastOfStaff;  // the chord that ends latest so far
    for (const u32 index : voice) {
        Chord& chord = score.chords[index];
        for (const auto& [staff, last] : lastOfStaff) {
            Chord& other = score.chords[last];
            const bool sameStaff = staff == chord.place.staff;
            const bool sounds = !chord.rest && !other.rest;
            if (chord.place.onset < other.End() && (sameStaff || sounds)) {
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
        std::stable_sort(voice.begin(), voice.end(), [&score](u32 a, u32 b) {
            return score.chords[a].place.onset < score.chords[b].place.onset;
        });
        MarkSharedTime(score, voice);
    }
}

std::string TimeText(ExactTime time) {
    return std::to_string(time.InUnits());
}

// A tuplet by where it starts and ends.
u32 NameOfTuplet(const Chord& first, const Chord& last, Texts& texts) {
    return texts.Of("tuplet " + std::to_string(first.place.staff) + ' ' +
                    std::to_string(first.place.measure) + ' ' + TimeText(first.place.onset) + ' ' +
                    std::to_string(last.place.measure) + ' ' + TimeText(last.End()));
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
        std::sort(chord.brackets.begin(), chord.brackets.end());
    }
}

// Where a tie within a measure ends is looked for by pitch and staff, as readers do.
void MarkTies(Score& score) {
    const auto keyOf = [&score](const Note& note, ExactTime time) {
        const Chord& chord = score.chords[note.chord];
        return std::tuple{chord.place.staff, chord.place.measure, time, note.pitch};
    };
    using Key = decltype(keyOf(score.notes[0], ExactTime{}));
    std::map<Key, u32> lastStop;  // by where it stands
    for (const Note& note : score.notes) {
        if (note.tieStop) {
            lastStop[keyOf(note, score.chords[note.chord].place.onset)] = note.chord;
        }
    }
    for (const Note& note : score.notes) {
        if (note.tieStart) {
            const auto stop =
                lastStop.find(keyOf(note, score.chords[note.chord].place.onset + note.duration));
            Chord& chord = score.chords[note.chord];
            chord.tieRunsBackward =
                chord.tieRunsBackward || (stop != lastStop.end() && stop->second < note.chord);
        }
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
    MarkTies(score);
    MarkLyrics(score);
}

}  // namespace standin::readback
