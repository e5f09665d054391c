#include "host/musicxml/write/voice_streams.h"

#include <algorithm>
#include <iterator>
#include <tuple>

#include "host/musicxml/write/beam_writer.h"
#include "host/musicxml/write/kept_brackets.h"
#include "host/musicxml/write/tuplet_gaps.h"

namespace standin {
namespace {

bool IsHiddenRest(const EXENTRY& entry) {
    return entry.noteCount == 0 && (entry.flags & EntryFlag::kIgnore) != 0;
}

// A hidden rest that is not written if its voice contains nothing else.
bool IsFiller(const EXENTRY& entry, const WrittenForm& form) {
    return IsHiddenRest(entry) && (form.gap || (entry.flags & EntryFlag::kMadeRest) != 0);
}

bool SharesTime(const PlannedEvent& a, const PlannedEvent& b) {
    return a.place.isWritten && b.place.isWritten && a.time.start < b.End() &&
           b.time.start < a.End();
}

// The contents of one voice of one frame.
struct Strand {
    std::string voice;
    std::size_t staff = 0;
    u16 layer = 0;
    u32 rank = 0;
    std::vector<PlannedEvent> events;
    std::vector<BracketTuplet> tuplets;

    bool IsFiller() const {
        return std::ranges::all_of(events,
                                   [](const PlannedEvent& event) { return event.isFiller; });
    }
};

class Streams {
public:
    Streams(const ImportedScore& score, const ScorePart& part, std::size_t measure)
        : m_score{score},
          m_part{part},
          m_original{part.measures[measure]},
          m_measure{static_cast<u16>(measure + 1)} {}

    std::vector<VoiceStream> Build() {
        CollectStrands();
        DropFillerStrands();
        std::ranges::stable_sort(m_strands, [](const Strand& a, const Strand& b) {
            return a.layer < b.layer;  // a voice's own staff has it in the lower layer
        });
        for (Strand& strand : m_strands) {
            AddStrand(strand);
        }
        PlaceAllBrackets();
        for (VoiceStream& stream : m_streams) {
            std::erase_if(stream.events,
                          [](const PlannedEvent& event) { return !event.place.isWritten; });
            SortByTime(stream);
        }
        std::erase_if(m_streams, [](const VoiceStream& stream) { return stream.events.empty(); });
        std::ranges::stable_sort(m_streams, {}, &VoiceStream::rank);
        return std::move(m_streams);
    }

private:
    bool WasRead(const PlannedEvent& event) const {
        return event.time.entry->entryNumber <= m_original.lastEntry;
    }

    void CollectStrands() {
        for (std::size_t staff = 0; staff < m_part.staves.size(); ++staff) {
            for (u16 layer = 0; layer < m_original.layers; ++layer) {
                const FrameKey key{m_part.staves[staff].staff, m_measure, layer};
                const Frame* frame = m_score.document->FindFrame(key);
                const Frame* imported = m_score.document->ImportedFrame(key);
                const bool bothAre = frame != nullptr && imported != nullptr;
                if (bothAre ? !(*imported == *frame) : imported != frame) {
                    m_changedVoices.insert(VoiceName(m_part, m_measure, staff, layer));
                    for (const EXENTRY& entry : (imported != nullptr ? imported : frame)->entries) {
                        m_changedVoices.insert(
                            VoiceName(m_part, m_measure, staff, layer, entry.entryNumber));
                    }
                }
                if (frame != nullptr) {
                    CollectStrands(*frame, key, staff, false);
                    CollectStrands(*frame, key, staff, true);
                }
            }
        }
    }

    // Voices that share a layer are separate strands.
    void CollectStrands(const Frame& frame, FrameKey key, std::size_t staff, bool voice2) {
        std::vector<std::pair<std::string, std::vector<TimedEntry>>> voices;
        for (const TimedEntry& timed : TimedEntriesOf(m_score, frame, voice2, m_original.grid)) {
            const std::string name =
                VoiceName(m_part, m_measure, staff, key.layer, timed.entry->entryNumber);
            auto voice = std::ranges::find_if(
                voices, [&name](const auto& known) { return known.first == name; });
            if (voice == voices.end()) {
                voice = voices.insert(voices.end(), {name, {}});
            }
            voice->second.push_back(timed);
        }
        for (const auto& [name, entries] : voices) {
            CollectStrand(frame, key, staff, name, entries);
        }
    }

    void CollectStrand(const Frame& frame, FrameKey key, std::size_t staff,
                       const std::string& voice, const std::vector<TimedEntry>& entries) {
        std::set<u32> known;
        u32 firstRead = m_original.lastEntry + 1;
        if (const Frame* imported = m_score.document->ImportedFrame(key)) {
            for (const EXENTRY& entry : imported->entries) {
                const u32 number = entry.entryNumber;
                known.insert(number);
                if (VoiceName(m_part, m_measure, staff, key.layer, number) == voice) {
                    firstRead = std::min(firstRead, number);
                }
            }
        }
        Strand& strand = m_strands.emplace_back();
        strand.voice = voice;
        strand.staff = staff;
        strand.layer = key.layer;
        strand.rank = RankOf(entries, key.staff, firstRead);
        std::vector<std::size_t> indices;
        for (const TimedEntry& timed : entries) {
            AddEvent(frame, timed, strand);
            PlannedEvent& event = strand.events.back();
            event.cameIn = !known.contains(u32{timed.entry->entryNumber});
            event.place.isAsRead =
                !event.cameIn && (timed.entry->flags & EntryFlag::kMadeRest) == 0;
            indices.push_back(static_cast<std::size_t>(timed.entry - frame.entries.data()));
        }
        AddBracketTuplets(frame.entries, m_score.document->Records(), indices, strand.tuplets);
    }

    // A strand of only filler is not written, unless a tuplet needs its part on this staff.
    void DropFillerStrands() {
        std::set<std::pair<std::string, u32>> shared;
        for (const Strand& strand : m_strands) {
            for (const BracketTuplet& tuplet : strand.tuplets) {
                if (!strand.IsFiller() || m_part.crossingBrackets.contains(tuplet.text.bracket)) {
                    shared.insert({strand.voice, tuplet.text.bracket});
                }
            }
        }
        std::erase_if(m_strands, [&](const Strand& strand) {
            return strand.IsFiller() &&
                   std::ranges::none_of(strand.tuplets, [&](const BracketTuplet& tuplet) {
                       return shared.contains({strand.voice, tuplet.text.bracket});
                   });
        });
    }

    // Ordered by the first entry in the file, even one that is gone, since directions of the voice
    // still come before it; music of a new voice comes after the other music of its staff.
    u32 RankOf(const std::vector<TimedEntry>& entries, u16 staff, u32 firstRead) const {
        u32 rank = firstRead;
        for (const TimedEntry& timed : entries) {
            rank = std::min(rank, u32{timed.entry->entryNumber});
        }
        if (rank <= m_original.lastEntry) {
            return rank;
        }
        rank = 0;
        for (u16 layer = 0; layer < m_original.layers; ++layer) {
            const Frame* frame = m_score.document->ImportedFrame({staff, m_measure, layer});
            if (frame == nullptr) {
                continue;
            }
            for (const EXENTRY& entry : frame->entries) {
                rank = entry.entryNumber <= m_original.lastEntry
                           ? std::max(rank, u32{entry.entryNumber})
                           : rank;
            }
        }
        return rank;
    }

    void AddEvent(const Frame& frame, const TimedEntry& timed, Strand& strand) {
        PlannedEvent& event = strand.events.emplace_back();
        event.time = timed;
        event.staff = strand.staff;
        event.layer = strand.layer;
        event.beamedByHost = frame.BeamedByHost();
        GatherEntryTexts(*m_score.document, *timed.entry, event.texts);
        const WrittenForm& form = m_score.forms[timed.entry->fieldAt12];
        event.isFiller = IsFiller(*timed.entry, form);
        event.place = {timed.start, event.End(), !(form.gap && IsHiddenRest(*timed.entry)),
                       event.isFiller};
        if (frame.BeamedByHost()) {
            const auto index = static_cast<std::size_t>(timed.entry - frame.entries.data());
            event.beams = WriteBeams(frame.beams[index]);
        } else {
            event.beams = m_score.fragments[event.texts.beams];
        }
    }

    // Music of the same voice replaces hidden rests that a merge left behind.
    static void DropFillers(std::vector<PlannedEvent>& events,
                            const std::vector<PlannedEvent>& others) {
        for (PlannedEvent& event : events) {
            const bool isInTheWay =
                event.isFiller && std::ranges::any_of(others, [&event](const PlannedEvent& other) {
                    return SharesTime(event, other);
                });
            event.place.isWritten = event.place.isWritten && !isInTheWay;
        }
    }

    static bool ShareTime(const VoiceStream& stream, const Strand& strand) {
        return std::ranges::any_of(stream.events, [&](const PlannedEvent& a) {
            return std::ranges::any_of(strand.events,
                                       [&](const PlannedEvent& b) { return SharesTime(a, b); });
        });
    }

    // Whether the strand has music or rests while its voice has some on another staff, and did not
    // when read, or only as one chord. Readers put what has one voice into one layer, one after the
    // other, rests too.
    bool IsNewlyTwofold(const VoiceStream& stream, const Strand& strand) const {
        return std::ranges::any_of(stream.events, [&](const PlannedEvent& a) {
            return a.staff != strand.staff &&
                   std::ranges::any_of(strand.events, [&](const PlannedEvent& b) {
                       return SharesTime(a, b) && (!a.place.isAsRead || !b.place.isAsRead ||
                                                   IsPartOfChord(a) || IsPartOfChord(b));
                   });
        });
    }

    bool IsPartOfChord(const PlannedEvent& event) const {
        return m_part.chordParts.contains(u32{event.time.entry->entryNumber});
    }

    void AddStrand(Strand& strand) {
        bool isNewlyTwofold = false;
        for (VoiceStream& stream : m_streams) {
            if (stream.voice != strand.voice) {
                continue;
            }
            DropFillers(strand.events, stream.events);
            DropFillers(stream.events, strand.events);
            const bool cutsTuplets =
                CutATuplet({stream.events, stream.tuplets}, {strand.events, strand.tuplets});
            if (!cutsTuplets && !ShareTime(stream, strand)) {
                Join(stream, strand);
                return;
            }
            isNewlyTwofold = isNewlyTwofold || cutsTuplets || IsNewlyTwofold(stream, strand);
        }
        VoiceStream& stream = m_streams.emplace_back();
        stream.changed = m_changedVoices.contains(strand.voice);
        stream.voice = strand.voice;
        stream.rank = strand.rank;
        stream.events = std::move(strand.events);
        stream.tuplets = std::move(strand.tuplets);
        if (isNewlyTwofold) {
            stream.readAs = strand.voice;
            stream.voice = FreeVoice(strand.staff);
            stream.changed = true;
        }
    }

    static void Join(VoiceStream& stream, Strand& strand) {
        AddTuplets(strand.tuplets, stream.events.size(), stream.tuplets);
        std::move(strand.events.begin(), strand.events.end(), std::back_inserter(stream.events));
        stream.rank = std::min(stream.rank, strand.rank);
    }

    // The tuplets of events that are put behind so many others.
    static void AddTuplets(const std::vector<BracketTuplet>& tuplets, std::size_t others,
                           std::vector<BracketTuplet>& all) {
        const int firstTuplet = static_cast<int>(all.size());
        for (BracketTuplet tuplet : tuplets) {
            tuplet.first += others;
            tuplet.last += others;
            tuplet.outer += tuplet.outer < 0 ? 0 : firstTuplet;
            all.push_back(tuplet);
        }
    }

    void PlaceAllBrackets() {
        std::set<std::string> done;
        for (const VoiceStream& stream : m_streams) {
            if (done.insert(stream.voice).second) {
                PlaceBracketsOf(stream.voice);
            }
        }
    }

    void PlaceBracketsOf(const std::string& voice) {
        std::vector<PlannedEvent*> events;
        std::vector<BracketTuplet> tuplets;
        for (std::size_t i = 0; i < m_streams.size(); ++i) {
            VoiceStream& stream = m_streams[i];
            if (stream.voice != voice) {
                continue;
            }
            const std::size_t known = tuplets.size();
            AddTuplets(stream.tuplets, events.size(), tuplets);
            for (std::size_t tuplet = known; tuplet < tuplets.size(); ++tuplet) {
                tuplets[tuplet].stream = i;
            }
            for (PlannedEvent& event : stream.events) {
                events.push_back(&event);
            }
        }
        KeepBracketsOfNotes(m_score, m_part, m_measure, events, tuplets);
        WriteGapsOfTuplets(events, tuplets);
        std::vector<BracketPlace> places;
        places.reserve(events.size());
        for (const PlannedEvent* event : events) {
            places.push_back(event->place);
        }
        PlaceBrackets(places, tuplets, m_score.fragments,
                      [&](const BracketPlace& place, const TupletText& text) {
                          return m_part.crossingBrackets.contains(text.bracket)
                                     ? HasOtherEnd(voice, text)
                                     : place.isAsRead;
                      });
        for (std::size_t i = 0; i < events.size(); ++i) {
            events[i]->place = std::move(places[i]);
        }
    }

    // The other end of a bracket that crosses a barline, in the same voice.
    bool HasOtherEnd(const std::string& voice, const TupletText& text) const {
        const auto& [first, last] = m_part.crossingBrackets.at(text.bracket);
        const u16 measure = text.start != 0 ? last : first;
        const auto isOther = [&](const EXENTRY& entry) {
            EntryTexts texts;
            GatherEntryTexts(*m_score.document, entry, texts);
            return std::ranges::any_of(texts.tuplets, [&](const TupletText& end) {
                return end.bracket == text.bracket && (end.start != 0) != (text.start != 0);
            });
        };
        for (std::size_t staff = 0; staff < m_part.staves.size(); ++staff) {
            for (u16 layer = 0; layer < m_part.measures[measure - 1U].layers; ++layer) {
                const Frame* frame =
                    m_score.document->FindFrame({m_part.staves[staff].staff, measure, layer});
                const auto isOtherHere = [&](const EXENTRY& entry) {
                    return VoiceName(m_part, measure, staff, layer, entry.entryNumber) == voice &&
                           isOther(entry);
                };
                if (frame != nullptr && std::ranges::any_of(frame->entries, isOtherHere)) {
                    return true;
                }
            }
        }
        return false;
    }

    // A voice of the staff that is silent here, else the lowest number that the part does not use.
    std::string FreeVoice(std::size_t staff) const {
        for (const std::string& name : m_part.staves[staff].names) {
            if (!name.empty() && !IsHere(Escaped(name)) && IsOnlyOn(staff, name)) {
                return Escaped(name);
            }
        }
        int number = 1;
        while (IsHere(std::to_string(number)) || IsKnown(std::to_string(number))) {
            ++number;
        }
        return std::to_string(number);
    }

    bool IsHere(const std::string& voice) const {
        const auto hasVoice = [&voice](const auto& holder) { return holder.voice == voice; };
        return std::ranges::any_of(m_streams, hasVoice) || std::ranges::any_of(m_strands, hasVoice);
    }

    bool IsOnlyOn(std::size_t staff, const std::string& name) const {
        for (std::size_t other = 0; other < m_part.staves.size(); ++other) {
            const auto& names = m_part.staves[other].names;
            if (other != staff && std::ranges::find(names, name) != names.end()) {
                return false;
            }
        }
        return true;
    }

    bool IsKnown(const std::string& name) const {
        return std::ranges::any_of(m_part.staves, [&name](const StaffVoices& staff) {
            return std::ranges::find(staff.names, name) != staff.names.end();
        });
    }

    // As in the file if nothing is new; else grace notes precede the notes at their time.
    void SortByTime(VoiceStream& stream) const {
        const bool isAsRead = std::ranges::all_of(
            stream.events, [this](const PlannedEvent& event) { return WasRead(event); });
        const auto order = [isAsRead](const PlannedEvent& event) {
            return std::pair{!isAsRead && !event.IsGrace(),
                             isAsRead ? event.time.entry->entryNumber : 0U};
        };
        std::ranges::stable_sort(stream.events, [&](const PlannedEvent& a, const PlannedEvent& b) {
            return a.time.start == b.time.start ? order(a) < order(b) : a.time.start < b.time.start;
        });
    }

    const ImportedScore& m_score;
    const ScorePart& m_part;
    const PartMeasure& m_original;
    u16 m_measure;
    std::set<std::string> m_changedVoices;
    std::vector<Strand> m_strands;
    std::vector<VoiceStream> m_streams;
};

}  // namespace

std::vector<VoiceStream> StreamsOf(const ImportedScore& score, const ScorePart& part,
                                   std::size_t measure) {
    return Streams{score, part, measure}.Build();
}

std::string VoiceName(const ScorePart& part, u16 measure, std::size_t staff, u16 layer, u32 entry) {
    const std::string& known = part.staves[staff].NameAt(measure, layer, entry);
    if (!known.empty()) {
        return Escaped(known);
    }
    const auto isUsed = [&part](const std::string& name) {
        return std::ranges::any_of(part.staves, [&](const StaffVoices& voices) {
            return std::ranges::find(voices.names, name) != voices.names.end();
        });
    };
    const std::size_t first = staff * kLayers + layer + 1;
    std::size_t number = first;
    while (isUsed(std::to_string(number))) {
        number += part.staves.size() * kLayers;
    }
    return std::to_string(number);
}

}  // namespace standin
