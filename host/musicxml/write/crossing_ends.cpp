#include "host/musicxml/write/crossing_ends.h"

#include <algorithm>
#include <cstring>
#include <map>

#include "host/musicxml/note_details.h"
#include "host/musicxml/write/beam_writer.h"
#include "host/musicxml/write/timed_entries.h"
#include "host/musicxml/write/tuplet_brackets.h"
#include "host/score/tags.h"

namespace standin {
namespace {

struct ImportedEntry {
    Rational time{};
    EntryBrackets brackets;
    std::string beams;
    BeamedEntry beamed;
};

using Voices = std::map<std::string, std::vector<ImportedEntry>>;  // in playing order

TupletText ImportedBrackets(const Document& document, u32 entry) {
    TupletText text{};
    for (u16 inci = 0; text.start == 0 && text.stop == 0; ++inci) {
        const Bytes* record =
            document.ImportedRecord(Tag::kTuplet, RecordKey::OfEntry(entry, inci));
        if (record == nullptr) {
            break;
        }
        std::memcpy(&text, record->data() + kTupletTextOffset, sizeof(text));
    }
    return text;
}

ImportedEntry EntryOf(const ImportedScore& score, const TimedEntry& timed) {
    const EXENTRY& entry = *timed.entry;
    const TupletText brackets = ImportedBrackets(*score.document, entry.entryNumber);
    const Bytes* beams =
        score.document->ImportedRecord(DetailTag::kBeams, RecordKey::OfEntry(entry.entryNumber));
    ImportedEntry result{timed.start, {}, {}, {}};
    result.brackets.stops = score.fragments[brackets.stop];
    result.brackets.starts = score.fragments[brackets.start];
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
                const auto entries = frame == nullptr
                                         ? std::vector<TimedEntry>{}
                                         : TimedEntriesOf(*frame, voice2, score.forms,
                                                          part.measures[measure - 1U].grid);
                for (const TimedEntry& timed : entries) {
                    voices[staff.NameAt(measure, layer, timed.entry->entryNumber)].push_back(
                        EntryOf(score, timed));
                }
            }
        }
    }
    for (auto& [name, entries] : voices) {
        std::stable_sort(
            entries.begin(), entries.end(),
            [](const ImportedEntry& a, const ImportedEntry& b) { return a.time < b.time; });
    }
    return voices;
}

// What mending takes away or turns has its other end in another measure.
CrossingEnds Difference(const ImportedEntry& entry, const EntryBrackets& brackets,
                        const BeamedEntry& beamed) {
    CrossingEnds ends{entry.time, {}, entry.beams};
    ends.brackets += brackets.stops != entry.brackets.stops ? entry.brackets.stops : "";
    ends.brackets += brackets.starts != entry.brackets.starts ? entry.brackets.starts : "";
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
    std::vector<EntryBrackets> brackets;
    std::vector<BeamedEntry> beamed;
    for (const ImportedEntry& entry : voice) {
        brackets.push_back(entry.brackets);
        beamed.push_back(entry.beamed);
    }
    DropUnpairedBrackets(brackets);
    MakeBeamsWhole(beamed);
    for (std::size_t i = 0; i < voice.size(); ++i) {
        const CrossingEnds ends = Difference(voice[i], brackets[i], beamed[i]);
        if (!ends.brackets.empty() || ends.beamsGo || ends.beamsCome) {
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
