#include "host/musicxml/write/crossing_ends.h"

#include <algorithm>
#include <map>

#include "host/musicxml/note_details.h"
#include "host/musicxml/write/beam_writer.h"
#include "host/musicxml/write/entries/timed_entries.h"

namespace standin {
namespace {

struct ImportedEntry {
    Rational time{};
    std::string beams;
    BeamedEntry beamed;
};

using Voices = std::map<std::string, std::vector<ImportedEntry>>;  // in playing order

ImportedEntry EntryOf(const ImportedScore& score, const TimedEntry& timed) {
    const EXENTRY& entry = *timed.entry;
    const Bytes* beams =
        score.document->ImportedRecord(DetailTag::kBeams, RecordKey::OfEntry(entry.entryNumber));
    ImportedEntry result{timed.start, {}, {}};
    if (beams != nullptr) {
        result.beams = score.fragments[FromBytes<EntryText>(*beams).fragment];
    }
    result.beamed = {ReadBeams(result.beams), entry.noteCount == 0,
                     (entry.flags & EntryFlag::kGrace) != 0};
    return result;
}

Voices VoicesOf(const ImportedScore& score, const ScorePart& part, u16 measure) {
    Voices voices;
    for (const StaffVoices& staff : part.staves) {
        for (u16 layer = 0; layer < part.measures[measure - 1U].layers; ++layer) {
            const Frame* frame = score.document->ImportedFrame({staff.staff, measure, layer});
            for (const bool voice2 : {false, true}) {
                const auto entries =
                    frame == nullptr
                        ? std::vector<TimedEntry>{}
                        : TimedEntriesOf(score, *frame, voice2, part.measures[measure - 1U].grid);
                for (const TimedEntry& timed : entries) {
                    voices[staff.NameAt(measure, layer, timed.entry->entryNumber)].push_back(
                        EntryOf(score, timed));
                }
            }
        }
    }
    for (auto& [name, entries] : voices) {
        std::ranges::stable_sort(entries, std::less{}, &ImportedEntry::time);
    }
    return voices;
}

// The other end of a removed or changed beam is in another measure.
CrossingEnds Difference(const ImportedEntry& entry, const BeamedEntry& beamed) {
    CrossingEnds ends{entry.time, entry.beams};
    for (std::size_t level = 0; level < beamed.levels.size(); ++level) {
        const Beam was = entry.beamed.levels[level];
        const Beam is = beamed.levels[level];
        const bool isClosed = is == Beam::kNone || is == Beam::kEnd;
        const bool isOpened = is == Beam::kNone || is == Beam::kBegin;
        ends.beamsGo |= isClosed && (was == Beam::kBegin || was == Beam::kContinue);
        ends.beamsCome |= isOpened && (was == Beam::kEnd || was == Beam::kContinue);
    }
    return ends;
}

void AddCrossing(const std::vector<ImportedEntry>& voice, std::vector<CrossingEnds>& all) {
    std::vector<BeamedEntry> beamed;
    beamed.reserve(voice.size());
    for (const ImportedEntry& entry : voice) {
        beamed.push_back(entry.beamed);
    }
    MakeBeamsWhole(beamed);
    for (std::size_t i = 0; i < voice.size(); ++i) {
        const CrossingEnds ends = Difference(voice[i], beamed[i]);
        if (ends.beamsGo || ends.beamsCome) {
            all.push_back(ends);
        }
    }
}

}  // namespace

std::vector<CrossingEnds> CrossingEndsOf(const ImportedScore& score, const ScorePart& part,
                                         u16 measure) {
    std::vector<CrossingEnds> ends;
    for (const auto& [name, entries] : VoicesOf(score, part, measure)) {
        AddCrossing(entries, ends);
    }
    return ends;
}

}  // namespace standin
