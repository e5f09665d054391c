#include "host/musicxml/entry_texts.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <span>

#include "host/score/records/tags.h"
#include "host/score/smart_shape.h"

namespace standin {
namespace {

// Collects the ends of spanners that the marks of an entry name.
class SpannerEnds {
public:
    SpannerEnds(const Document& document, u32 entry, EntryTexts& texts)
        : m_document{document},
          m_entry{entry},
          m_texts{texts},
          m_marks{document, ShapeMarks::State::kNow} {}

    void Add(u16 shape) {
        const Bytes* record = m_document.Records().Find(Tag::kSmartShape, RecordKey::Other(shape));
        // An entry that now has both ends has a mark for each.
        if (record == nullptr || !m_added.insert(shape).second) {
            return;
        }
        const auto ends = FromBytes<EDTSmartShape>(*record);
        // An end's entry may be deleted, or have become a rest without any mark.
        if (!m_marks.AreAtBothEnds(ends, shape)) {
            return;
        }
        SpannerText text{};
        std::memcpy(&text, reinterpret_cast<const char*>(&ends) + kSpannerTextOffset, sizeof(text));
        if (ends.start.entryNumber == m_entry && text.start != 0) {
            m_texts.spanners.push_back({shape, text.start, true, text.startNote, ends.end});
        }
        if (ends.end.entryNumber == m_entry && text.stop != 0) {
            m_texts.spanners.push_back({shape, text.stop, false, text.stopNote, ends.start});
        }
    }

private:
    const Document& m_document;
    u32 m_entry;
    EntryTexts& m_texts;
    ShapeMarks m_marks;
    std::set<u16> m_added;  // shapes
};

void AddText(const EntryText& text, EntryTexts& texts) {
    switch (text.kind) {
        case EntryTextKind::kBeams:
            texts.beams = texts.beams == 0 ? text.fragment : texts.beams;
            break;
        case EntryTextKind::kStem:
            texts.stem = texts.stem == 0 ? text.fragment : texts.stem;
            break;
        default:
            texts.texts.push_back(text);
            break;
    }
}

bool HasDetail(const EntryTexts& texts, u32 tag, u16 noteID) {
    return std::ranges::any_of(texts.notes, [&](const NoteDetail& detail) {
        return detail.tag == tag && detail.noteID == noteID;
    });
}

// A note of the same pitch that lacks such a detail; 0 when there is none.
u16 EqualNoteWithout(const EXENTRY& entry, const EntryTexts& texts, const NoteDetail& detail) {
    const u32 needed = detail.tag == DetailTag::kTieStart ? NoteFlag::kTieStart
                       : detail.tag == DetailTag::kTieEnd ? NoteFlag::kTieEnd
                                                          : 0U;
    const std::span notes{entry.notes, static_cast<std::size_t>(entry.noteCount)};
    const auto owner = std::ranges::find_if(
        notes, [&](const EXNOTE& note) { return note.noteID == detail.noteID; });
    for (const EXNOTE& note : notes) {
        const bool isEqual = owner != notes.end() && note.noteID != owner->noteID &&
                             note.pitch == owner->pitch && (note.flags & needed) == needed;
        if (isEqual && !HasDetail(texts, detail.tag, note.noteID)) {
            return note.noteID;
        }
    }
    return 0;
}

void ShareOut(const EXENTRY& entry, EntryTexts& texts) {
    for (std::size_t i = 1; i < texts.notes.size(); ++i) {
        NoteDetail& detail = texts.notes[i];
        for (std::size_t earlier = 0; earlier < i; ++earlier) {
            const NoteDetail& other = texts.notes[earlier];
            if (other.tag == detail.tag && other.noteID == detail.noteID) {
                const u16 noteID = EqualNoteWithout(entry, texts, detail);
                detail.noteID = noteID != 0 ? noteID : detail.noteID;
                break;
            }
        }
    }
}

}  // namespace

void EntryTexts::Clear() {
    texts.clear();
    lyrics.clear();
    spanners.clear();
    notes.clear();
    beams = 0;
    stem = 0;
    tuplets.clear();
}

void GatherEntryTexts(const Document& document, const EXENTRY& entry, EntryTexts& texts) {
    texts.Clear();
    SpannerEnds spanners{document, entry.entryNumber, texts};
    document.Records().ForEachDetail(entry.entryNumber, [&](u32 tag, RecordKey key,
                                                            const Bytes& bytes) {
        switch (tag) {
            case DetailTag::kArticulation:
            case DetailTag::kRestLook:
            case DetailTag::kBeams:
            case DetailTag::kStem:
                AddText(FromBytes<EntryText>(bytes), texts);
                break;
            case DetailTag::kLyric: {
                FragmentId fragment = 0;
                std::memcpy(&fragment, bytes.data() + kLyricFragmentOffset, sizeof(fragment));
                texts.lyrics.push_back({fragment, document.ImportedRecord(tag, key) == nullptr});
                break;
            }
            case DetailTag::kTieStart:
            case DetailTag::kTieEnd: {
                const auto tie = FromBytes<TieText>(bytes);
                texts.notes.push_back({tie.noteID, tag, tie.tie, tie.tied});
                break;
            }
            case DetailTag::kNoteExtras:
            case DetailTag::kNotehead:
            case DetailTag::kAccidental:
            case DetailTag::kDots: {
                const auto note = FromBytes<NoteText>(bytes);
                texts.notes.push_back({note.noteID, tag, note.fragment, 0});
                break;
            }
            case Tag::kTuplet:
                if (const TupletText text = TupletTextOf(bytes);
                    text.start != 0 || text.stop != 0) {
                    texts.tuplets.push_back(text);
                }
                break;
            case Tag::kShapeOnEntry:
                spanners.Add(FromBytes<EDTSmartShapeEntMark>(bytes).shapeNumber);
                break;
            default:
                break;
        }
    });
    ShareOut(entry, texts);
}

TupletText TupletTextOf(const Bytes& record) {
    TupletText text{};
    std::memcpy(&text, record.data() + kTupletTextOffset, sizeof(text));
    return text;
}

int NoteOfSpanner(const EXENTRY& entry, const SpannerAtEntry& end) {
    for (int i = 0; i < entry.noteCount; ++i) {
        if (entry.notes[i].pitch == end.note.pitch && entry.notes[i].second == end.note.second) {
            return i;
        }
    }
    return 0;
}

}  // namespace standin
