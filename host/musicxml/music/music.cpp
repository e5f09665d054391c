#include "host/musicxml/music/music.h"

#include <algorithm>
#include <tuple>

#include "host/musicxml/entry_texts.h"
#include "host/musicxml/xml/xml_node.h"

namespace standin {
namespace {

class MusicBuilder {
public:
    explicit MusicBuilder(const ImportedScore& score)
        : m_score{score}, m_document{*score.document} {}

    Music Build() {
        u16 slot = 0;
        for (const ScorePart& part : m_score.parts) {
            for (const StaffVoices& staff : part.staves) {
                AddStaff(part, staff.staff, ++slot);
            }
        }
        std::stable_sort(m_music.entries.begin(), m_music.entries.end(),
                         [](const MusicEntry& a, const MusicEntry& b) {
                             return std::tie(a.staff, a.measure, a.onset, a.grace) <
                                    std::tie(b.staff, b.measure, b.onset, b.grace);
                         });
        AddItems();
        return std::move(m_music);
    }

private:
    void AddStaff(const ScorePart& part, u16 staff, u16 slot) {
        for (std::size_t i = 0; i < part.measures.size(); ++i) {
            const auto measure = static_cast<u16>(i + 1);
            m_fifths = FifthsOfKeyWord(m_document.Measure(measure).key);
            for (u16 layer = 0; layer < part.measures[i].layers; ++layer) {
                const FrameKey key{staff, measure, layer};
                if (const Frame* frame = m_document.FindFrame(key)) {
                    AddFrame(*frame, key, slot);
                }
            }
        }
    }

    void AddFrame(const Frame& frame, FrameKey key, u16 slot) {
        for (std::size_t i = 0; i < frame.entries.size(); ++i) {
            const EXENTRY& entry = frame.entries[i];
            MusicEntry& result = m_music.entries.emplace_back();
            result.staff = slot;
            result.measure = key.measure;
            result.layer = key.layer;
            result.onset = entry.elapsedTime;
            result.length = entry.actualDuration;
            result.grace = GraceOffset(frame, i);
            result.duration = entry.duration;
            result.rest = entry.noteCount == 0;
            result.hidden = (entry.flags & EntryFlag::kIgnore) != 0;
            result.filler = result.rest && result.hidden && m_score.forms[entry.fieldAt12].gap;
            AddContent(entry, result);
        }
    }

    static i32 GraceOffset(const Frame& frame, std::size_t index) {
        i32 offset = 0;
        for (;
             index < frame.entries.size() && (frame.entries[index].flags & EntryFlag::kGrace) != 0;
             ++index) {
            offset -= frame.entries[index].duration;
        }
        return offset;
    }

    void Attach(Attachment::Kind kind, std::string_view text) {
        m_music.attachments.emplace_back().kind = kind;
        m_music.attachments.back().text = text;
    }

    void Attach(Attachment::Kind kind, FragmentId fragment) {
        if (fragment != 0) {
            Attach(kind, m_score.fragments[fragment]);
        }
    }

    // A bundle is written in the order of the format, and the notes of a chord in that of their
    // pitches: what counts is each of its elements.
    void AttachBundle(Attachment::Kind kind, FragmentId bundle) {
        const std::string_view text = m_score.fragments[bundle];
        if (const std::string_view attributes = BundleAttributes(text); !attributes.empty()) {
            Attach(kind, attributes);
        }
        ForEachElement(text, [&](std::string_view element) {
            const std::string_view name = ElementName(element);
            const bool isLook = name == "stem" || name == "beam";
            Attach(isLook ? Attachment::Kind::kLook : kind, element);
        });
    }

    u32 AttachmentCount() const { return static_cast<u32>(m_music.attachments.size()); }

    void AddContent(const EXENTRY& entry, MusicEntry& result) {
        using Kind = Attachment::Kind;
        GatherEntryTexts(m_document, entry, m_texts);
        const WrittenForm& form = m_score.forms[entry.fieldAt12];
        result.firstAttachment = AttachmentCount();
        for (const EntryText& text : m_texts.texts) {
            if (text.kind == EntryTextKind::kRestExtras) {
                AttachBundle(Kind::kEntry, text.fragment);
            } else if (text.kind == EntryTextKind::kRestLook) {
                AttachBundle(Kind::kLook, text.fragment);
            } else {
                Attach(Kind::kEntry, text.fragment);
            }
        }
        for (const LyricAtEntry& lyric : m_texts.lyrics) {
            Attach(Kind::kLyric, lyric.fragment);
        }
        for (const SpannerAtEntry& end : m_texts.spanners) {
            AddSpanner(end);
        }
        for (const TupletText& tuplet : m_texts.tuplets) {
            Attach(Kind::kLook, tuplet.start);
            Attach(Kind::kLook, tuplet.stop);
        }
        Attach(Kind::kLook, m_texts.beams);
        Attach(Kind::kLook, form.rest);
        Attach(Kind::kLook, form.timeModification);
        AddStem(entry);
        result.attachmentCount = AttachmentCount() - result.firstAttachment;
        result.firstNote = static_cast<u32>(m_music.notes.size());
        result.noteCount = static_cast<u32>(entry.noteCount);
        for (int i = 0; i < entry.noteCount; ++i) {
            AddNote(entry.notes[i]);
        }
    }

    void AddStem(const EXENTRY& entry) {
        Attach(Attachment::Kind::kLook, m_texts.stem);
        if (m_texts.stem == 0 && (entry.flags & HostEntryFlag::kFixedStem) != 0 &&
            entry.noteCount > 0) {
            const bool up = (entry.flags & HostEntryFlag::kStemUp) != 0;
            Attach(Attachment::Kind::kLook,
                   std::string_view{up ? "<stem>up</stem>" : "<stem>down</stem>"});
        }
    }

    void AddSpanner(const SpannerAtEntry& end) {
        const EXENTRY* other = m_document.FindEntry(end.other.entryNumber);
        const i32 position = other != nullptr ? i32{other->elapsedTime} : i32{end.other.position};
        const auto kind =
            end.isStart ? Attachment::Kind::kSpannerStart : Attachment::Kind::kSpannerEnd;
        const FrameKey home = m_document.HomeOf(end.other.entryNumber);
        const i16 slot = m_document.SlotOfStaff(home.staff, 0);
        m_music.attachments.push_back({kind, static_cast<u16>(slot), home.measure, home.layer,
                                       position, m_score.fragments[end.fragment],
                                       other != nullptr && other->noteCount == 0});
    }

    void AddNote(const EXNOTE& note) {
        MusicNote& result = m_music.notes.emplace_back();
        result.pitch = PitchOfField(note.pitch, m_fifths);
        result.pitchElement = m_score.pitches[note.second];
        result.tieStart = (note.flags & NoteFlag::kTieStart) != 0;
        result.tieEnd = (note.flags & NoteFlag::kTieEnd) != 0;
        result.firstAttachment = AttachmentCount();
        for (const NoteDetail& detail : m_texts.notes) {
            if (detail.noteID == note.noteID && detail.tag == DetailTag::kNoteExtras) {
                AttachBundle(Attachment::Kind::kNote, detail.fragment);
            } else if (detail.noteID == note.noteID) {
                Attach(Attachment::Kind::kNote, detail.fragment);
                Attach(Attachment::Kind::kNote, detail.second);
            }
        }
        result.attachmentCount = AttachmentCount() - result.firstAttachment;
    }

    void AddItems() {
        const std::string_view text = m_score.text;
        for (std::size_t part = 0; part < m_score.parts.size(); ++part) {
            const std::vector<PartMeasure>& measures = m_score.parts[part].measures;
            for (std::size_t measure = 0; measure < measures.size(); ++measure) {
                for (const MeasureItem& item : measures[measure].items) {
                    const i32 position =
                        item.closesMeasure
                            ? kEndOfMeasure
                            : static_cast<i32>(RoundToUnits(item.time + item.offset));
                    m_music.items.push_back({static_cast<u16>(part + 1),
                                             static_cast<u16>(measure + 1), position,
                                             text.substr(item.begin, item.end - item.begin)});
                }
            }
        }
    }

    const ImportedScore& m_score;
    const Document& m_document;
    Music m_music;
    EntryTexts m_texts;
    int m_fifths = 0;
};

}  // namespace

Music MusicOf(const ImportedScore& score) {
    return MusicBuilder{score}.Build();
}

}  // namespace standin
