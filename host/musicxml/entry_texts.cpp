#include "host/musicxml/entry_texts.h"

#include <cstring>

#include "host/score/tags.h"

namespace standin {
namespace {

void AddSpanner(const Document& document, u32 entry, u16 shape, EntryTexts& texts) {
    const Bytes* record = document.Records().Find(Tag::kSmartShape, RecordKey::Other(shape));
    if (record == nullptr) {
        return;
    }
    const auto ends = FromBytes<EDTSmartShape>(*record);
    SpannerText text{};
    std::memcpy(&text, reinterpret_cast<const char*>(&ends) + kSpannerTextOffset, sizeof(text));
    if (ends.start.entryNumber == entry) {
        texts.spanners.push_back({shape, text.start, true,
                                  (text.ends & SpannerEnd::kStartOnLaterNote) != 0, text.startPitch,
                                  ends.end});
    }
    if (ends.end.entryNumber == entry) {
        texts.spanners.push_back({shape, text.stop, false,
                                  (text.ends & SpannerEnd::kStopOnLaterNote) != 0, text.stopPitch,
                                  ends.start});
    }
}

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

}  // namespace

void EntryTexts::Clear() {
    texts.clear();
    lyrics.clear();
    spanners.clear();
    notes.clear();
    beams = 0;
    stem = 0;
    tuplet = {};
}

void GatherEntryTexts(const Document& document, u32 entry, EntryTexts& texts) {
    texts.Clear();
    document.Records().ForEachDetail(entry, [&](u32 tag, RecordKey, const Bytes& bytes) {
        switch (tag) {
            case DetailTag::kArticulation:
            case DetailTag::kBeams:
            case DetailTag::kStem:
                AddText(FromBytes<EntryText>(bytes), texts);
                break;
            case DetailTag::kLyric: {
                FragmentId fragment = 0;
                std::memcpy(&fragment, bytes.data() + kLyricFragmentOffset, sizeof(fragment));
                texts.lyrics.push_back(fragment);
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
                if (texts.tuplet.start == 0 && texts.tuplet.stop == 0) {
                    std::memcpy(&texts.tuplet, bytes.data() + kTupletTextOffset,
                                sizeof(texts.tuplet));
                }
                break;
            case Tag::kShapeOnEntry:
                AddSpanner(document, entry, FromBytes<EDTSmartShapeEntMark>(bytes).shapeNumber,
                           texts);
                break;
            default:
                break;
        }
    });
}

int NoteOfSpanner(const EXENTRY& entry, const SpannerAtEntry& end) {
    for (int i = 0; end.onLaterNote && i < entry.noteCount; ++i) {
        if (entry.notes[i].pitch == end.pitch) {
            return i;
        }
    }
    return 0;
}

}  // namespace standin
