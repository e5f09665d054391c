#include "host/report/remarks.h"

#include <algorithm>
#include <set>
#include <span>

#include "host/musicxml/entry_texts.h"
#include "host/musicxml/lyric_numbers.h"
#include "host/musicxml/xml/xml_text.h"
#include "host/report/places.h"
#include "host/report/tie_remarks.h"
#include "host/report/tuplet_remarks.h"
#include "host/score/selection.h"
#include "host/texts/texts.h"

namespace standin {
namespace {

// A musician's name for the element.
std::string NameOfMarking(std::string_view element) {
    while (ElementName(element) == "notations") {
        element.remove_prefix(TagEnd(element, 0));
    }
    const std::string_view name = ElementName(element);
    static constexpr std::pair<std::string_view, Text> kNames[] = {
        {"accent", Text::kAccent},
        {"arpeggiate", Text::kArpeggio},
        {"breath-mark", Text::kBreathMark},
        {"fermata", Text::kFermata},
        {"mordent", Text::kMordent},
        {"non-arpeggiate", Text::kNonArpeggio},
        {"staccato", Text::kStaccato},
        {"tenuto", Text::kTenuto},
        {"tremolo", Text::kTremolo},
        {"trill-mark", Text::kTrill},
        {"turn", Text::kTurn},
    };
    for (const auto& [known, text] : kNames) {
        if (name == known) {
            return std::string{Say(text)};
        }
    }
    std::string words{name};
    std::replace(words.begin(), words.end(), '-', ' ');
    return words;
}

// The syllable of a lyric, without its markup.
std::string TextOfLyric(std::string_view lyric) {
    const std::size_t begin = lyric.find("<text");
    if (begin == std::string_view::npos) {
        return {};
    }
    const std::size_t text = TagEnd(lyric, begin);
    return std::string{lyric.substr(text, lyric.find('<', text) - text)};
}

bool IsMarking(const EntryText& text) {
    return text.kind == EntryTextKind::kArticulation || text.kind == EntryTextKind::kOrnament ||
           text.kind == EntryTextKind::kNotation;
}

class StaffRemarks {
public:
    StaffRemarks(const ImportedScore& score, u16 slot, FrameKey destination)
        : m_score{score},
          m_document{*score.document},
          m_key{destination},
          m_slot{slot},
          m_now{m_document.FindFrame(destination)} {}

    void Add(std::vector<Remark>& remarks) {
        if (m_now == nullptr) {
            return;
        }
        for (const EXENTRY& entry : m_now->entries) {
            GatherEntryTexts(m_document, entry, m_texts);
            AddLyrics(entry, remarks);
            AddMarkings(entry, remarks);
            AddUnisons(entry, remarks);
        }
    }

private:
    static const EXENTRY* EntryIn(const Frame* frame, u32 number) {
        if (frame == nullptr) {
            return nullptr;
        }
        const auto found = std::ranges::find_if(
            frame->entries, [number](const EXENTRY& entry) { return entry.entryNumber == number; });
        return found == frame->entries.end() ? nullptr : &*found;
    }

    Remark At(Remark::Kind kind, const EXENTRY& entry) const {
        Remark remark;
        remark.kind = kind;
        remark.staff = m_slot;
        remark.measure = m_key.measure;
        remark.onset = i32{entry.elapsedTime};
        return remark;
    }

    void AddLyrics(const EXENTRY& entry, std::vector<Remark>& remarks) const {
        const std::vector<std::string> numbers = LyricNumbers(m_score.fragments, m_texts.lyrics);
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            if (!numbers[i].empty()) {
                Remark& remark = remarks.emplace_back(At(Remark::Kind::kLyricNumber, entry));
                remark.what = TextOfLyric(m_score.fragments[m_texts.lyrics[i].fragment]);
                remark.words = Say(Text::kLyricRenumbered, {remark.what, numbers[i]});
            }
        }
    }

    // The markings that some of the joined entries had, but not all.
    void AddMarkings(const EXENTRY& entry, std::vector<Remark>& remarks) const {
        const bool isBare = m_texts.texts.empty() && m_texts.notes.empty();
        const std::vector<u16> layers = isBare ? std::vector<u16>{} : LayersOf(entry);
        if (layers.size() < 2) {
            return;
        }
        std::set<std::string> named;
        for (const EntryText& text : m_texts.texts) {
            if (IsMarking(text)) {
                AddMarking(entry, layers, m_score.fragments[text.fragment], named, remarks);
            }
        }
        for (const NoteDetail& detail : m_texts.notes) {
            if (detail.tag != DetailTag::kNoteExtras) {
                continue;
            }
            ForEachElement(m_score.fragments[detail.fragment], [&](std::string_view element) {
                if (ElementName(element).ends_with("arpeggiate")) {
                    AddMarking(entry, layers, element, named, remarks);
                }
            });
        }
    }

    void AddMarking(const EXENTRY& entry, const std::vector<u16>& layers, std::string_view element,
                    std::set<std::string>& named, std::vector<Remark>& remarks) const {
        std::vector<u16> owners;
        std::ranges::copy_if(layers, std::back_inserter(owners),
                             [&](u16 layer) { return HadMarking(layer, entry, element); });
        const std::string name = NameOfMarking(element);
        if (owners.empty() || owners.size() == layers.size() || !named.insert(name).second) {
            return;
        }
        Remark& remark = remarks.emplace_back(At(Remark::Kind::kMarking, entry));
        remark.layer = owners.front();
        remark.what = name;
        remark.words = Say(Text::kMarkingOfChord, {name, std::to_string(owners.front() + 1)});
    }

    // Two tied notes of the same pitch in one chord, which other programs read as one.
    void AddUnisons(const EXENTRY& entry, std::vector<Remark>& remarks) const {
        const std::span notes{entry.notes, static_cast<std::size_t>(entry.noteCount)};
        for (auto note = notes.begin(); note != notes.end(); ++note) {
            const bool isTiedTwice = (note->flags & NoteFlag::kTieStart) != 0 &&
                                     std::any_of(notes.begin(), note, [&note](const EXNOTE& other) {
                                         return other.pitch == note->pitch &&
                                                other.second == note->second &&
                                                (other.flags & NoteFlag::kTieStart) != 0;
                                     });
            if (isTiedTwice && LayersOf(entry).size() > 1) {
                Remark& remark = remarks.emplace_back(At(Remark::Kind::kTie, entry));
                remark.what = NameOfNote(m_score, m_key.measure, *note);
                remark.words = Say(Text::kTiedTwice, {remark.what});
            }
        }
    }

    bool Coincide(const EXENTRY& a, const EXENTRY& b) const {
        return a.elapsedTime == b.elapsedTime && a.duration == b.duration &&
               ((a.flags ^ b.flags) & EntryFlag::kGrace) == 0;
    }

    // The layers whose notes make up the entry now.
    std::vector<u16> LayersOf(const EXENTRY& entry) const {
        std::vector<u16> layers;
        for (u16 layer = 0; layer < kLayers; ++layer) {
            const FrameKey key{m_key.staff, m_key.measure, layer};
            const EXENTRY* was = WasAt(key, entry);
            const Frame* now = m_document.FindFrame(key);
            const EXENTRY* is = was == nullptr ? nullptr : EntryIn(now, was->entryNumber);
            const bool gaveNotes = layer != m_key.layer && (is == nullptr || is->noteCount == 0);
            if (was != nullptr && (layer == m_key.layer || gaveNotes)) {
                layers.push_back(layer);
            }
        }
        return layers;
    }

    const EXENTRY* WasAt(FrameKey key, const EXENTRY& entry) const {
        const Frame* frame = m_document.ImportedFrame(key);
        if (frame == nullptr) {
            return nullptr;
        }
        const auto found = std::ranges::find_if(frame->entries, [&](const EXENTRY& was) {
            return was.noteCount > 0 && Coincide(was, entry);
        });
        return found == frame->entries.end() ? nullptr : &*found;
    }

    bool HadMarking(u16 layer, const EXENTRY& entry, std::string_view element) const {
        const EXENTRY* was = WasAt({m_key.staff, m_key.measure, layer}, entry);
        for (u16 inci = 0; was != nullptr; ++inci) {
            const RecordKey key = RecordKey::OfEntry(was->entryNumber, inci);
            const Bytes* text = m_document.ImportedRecord(DetailTag::kArticulation, key);
            const Bytes* extras = m_document.ImportedRecord(DetailTag::kNoteExtras, key);
            if (text != nullptr &&
                m_score.fragments[FromBytes<EntryText>(*text).fragment] == element) {
                return true;
            }
            if (extras != nullptr && m_score.fragments[FromBytes<NoteText>(*extras).fragment].find(
                                         element) != std::string_view::npos) {
                return true;
            }
            if (text == nullptr && extras == nullptr) {
                return false;
            }
        }
        return false;
    }

    const ImportedScore& m_score;
    const Document& m_document;
    FrameKey m_key;
    u16 m_slot;
    const Frame* m_now;
    EntryTexts m_texts;
};

void AddCarried(const ImportedScore& score, u16 layers, u16 slot, FrameKey key,
                const EREGION& selection, std::vector<Remark>& remarks) {
    int voices = 0;
    for (key.layer = kLayers; key.layer < layers; ++key.layer) {
        const Frame* frame = score.document->FindFrame(key);
        const bool sounds =
            frame != nullptr && std::ranges::any_of(frame->entries, [&](const EXENTRY& entry) {
                return entry.noteCount > 0 &&
                       Holds(selection, slot, key.measure, entry.elapsedTime);
            });
        voices += sounds ? 1 : 0;
    }
    if (voices > 0) {
        Remark& remark = remarks.emplace_back();
        remark.kind = Remark::Kind::kVoiceNotMerged;
        remark.staff = slot;
        remark.measure = key.measure;
        remark.what = voices == 1 ? std::string{Say(Text::kFifthVoice)}
                                  : Say(Text::kFurtherVoices, {std::to_string(voices)});
        remark.words = Say(voices == 1 ? Text::kNotMerged : Text::kNoneMerged, {remark.what});
    }
}

void AddPlace(const Document& document, const std::vector<std::string>& staffNames,
              Remark& remark) {
    remark.number = PrintedNumber(document, remark.measure);
    remark.staffName = staffNames[remark.staff];
    remark.beat = BeatAt(document, remark.measure, remark.onset.value_or(0));
}

}  // namespace

std::vector<Remark> RemarksOn(const ImportedScore& score, u16 destination,
                              const EREGION& selection) {
    const std::set<std::pair<u16, u16>> changed = score.document->ChangedMeasures();
    const std::vector<std::string> staffNames = StaffNames(score);
    std::vector<Remark> remarks;
    u16 slot = 0;
    for (const ScorePart& part : score.parts) {
        const auto firstSlot = static_cast<u16>(slot + 1);
        for (const StaffVoices& staff : part.staves) {
            ++slot;
            for (std::size_t i = 0; i < part.measures.size(); ++i) {
                const FrameKey key{staff.staff, static_cast<u16>(i + 1), destination};
                AddCarried(score, part.measures[i].layers, slot, key, selection, remarks);
                if (changed.contains({key.staff, key.measure})) {
                    StaffRemarks{score, slot, key}.Add(remarks);
                }
            }
        }
        AddTieRemarks(score, part, firstSlot, changed, remarks);
        AddTupletRemarks(score, part, firstSlot, destination, changed, remarks);
    }
    std::ranges::stable_sort(remarks, [](const Remark& a, const Remark& b) {
        return std::pair{a.staff, a.measure} < std::pair{b.staff, b.measure};
    });
    for (Remark& remark : remarks) {
        AddPlace(*score.document, staffNames, remark);
    }
    return remarks;
}

std::string WordsFor(const Remark& remark) {
    const std::string place = Say(Text::kRemarkPlace, {remark.number, remark.staffName});
    const std::string beat =
        remark.onset ? ", " + Say(Text::kOneBeat, {BeatText(remark.beat)}) : std::string{};
    return place + beat + ": " + remark.words;
}

}  // namespace standin
