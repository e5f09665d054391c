#include "host/musicxml/read/note_attachments.h"

#include <cstring>

#include "host/musicxml/entry_texts.h"
#include "host/musicxml/note_children.h"
#include "host/musicxml/note_details.h"
#include "host/musicxml/xml/xml_node.h"
#include "host/score/frame.h"

namespace standin {
namespace {

bool IsMarkup(pugi::xml_node node) {
    return node.type() == pugi::node_element || node.type() == pugi::node_comment ||
           node.type() == pugi::node_pi;
}

std::string NotationsTag(std::string_view attributes) {
    return "<notations" + (attributes.empty() ? "" : ' ' + std::string{attributes}) + '>';
}

// An id must be unique in a file, so only the first of several pieces keeps it.
std::string WithoutId(std::string_view attributes) {
    const std::string tag = WithAttribute(NotationsTag(attributes), "id", {});
    const std::size_t name = std::string_view{"<notations"}.size();
    return std::string{Trimmed(std::string_view{tag}.substr(name, tag.size() - name - 1))};
}

// Notations that belong to the one note even in a chord.
bool IsOfOneNote(std::string_view name) {
    return name == "technical" || name == "arpeggiate" || name == "non-arpeggiate" ||
           name == "accidental-mark";
}

}  // namespace

template <typename Record>
void NoteAttachments::Create(u32 tag, const Record& record) {
    const RecordKey key = RecordKey::OfEntry(m_place.entry->entryNumber, kAppend);
    m_fits = m_records.Create(tag, key, BytesOf(record)).has_value() && m_fits;
}

void NoteAttachments::CreateEntryText(u32 tag, EntryTextKind kind, FragmentId fragment) {
    Create(tag, EntryText{kind, 0, fragment, 0});
}

void NoteAttachments::CreateNoteText(u32 tag, FragmentId fragment) {
    NoteText24 record{};
    record.text.noteID = static_cast<u16>(m_place.noteIndex + 1);
    record.text.fragment = fragment;
    if (tag == DetailTag::kNotehead || tag == DetailTag::kAccidental) {
        Create(tag, record);
    } else {
        Create(tag, record.text);
    }
}

// Kept in the order of writing, so that a rewritten note reads the same.
void NoteAttachments::AddExtra(std::string_view element) {
    const bool isComment = element.starts_with("<!") || element.starts_with("<?");
    const bool isSeparate = ElementName(element) == "notations";
    (isComment ? m_comments : isSeparate ? m_separateNotations : m_extras) += element;
}

bool NoteAttachments::Read(const NoteElement& note, const EntryPlace& place) {
    m_place = place;
    m_voice = note.voice;
    m_extras.clear();
    m_separateNotations.clear();
    m_comments.clear();
    m_notehead.clear();
    m_dots.clear();
    m_beams.clear();
    m_dotsArePlain = true;
    m_tieStart = {};
    m_tieEnd = {};
    m_brackets.clear();
    if (note.node.first_attribute()) {
        const bool hiddenRest = note.rest && note.hidden;
        const std::string shown = hiddenRest
                                      ? WithAttribute(TextOf(m_text, note.node), "print-object", {})
                                      : std::string{};
        const std::string_view tag = hiddenRest ? std::string_view{shown} : m_text;
        const std::size_t begin = hiddenRest ? 0 : OffsetOf(note.node);
        std::string_view attributes = tag.substr(begin, TagEnd(tag, begin) - begin - 1);
        attributes.remove_prefix(std::strlen("<note"));
        // The text after the attributes begins with "<", which a careless file may also have in a
        // value.
        for (const char sign : Trimmed(attributes)) {
            m_extras += sign == '<' ? std::string_view{"&lt;"} : std::string_view{&sign, 1};
        }
    }
    for (const pugi::xml_node child : note.node.children()) {
        ReadChild(child);
    }
    if (!m_beams.empty() && IsFirst()) {
        CreateEntryText(DetailTag::kBeams, EntryTextKind::kBeams, m_fragments.InternCopy(m_beams));
    } else {
        m_extras += m_beams;
    }
    StoreExtras(note);
    StoreTies();
    return m_fits;
}

void NoteAttachments::ReadChild(pugi::xml_node child) {
    const NoteChild& known = NoteChildOf(child.name());
    if (known.keptAs == KeptAs::kRecord) {
        ReadRecord(known.slot, child);
    } else if (known.keptAs == KeptAs::kText && IsMarkup(child)) {
        AddExtra(TextOf(m_text, child));
    }
}

void NoteAttachments::ReadRecord(NoteSlot slot, pugi::xml_node child) {
    switch (slot) {
        case NoteSlot::kGrace:
            if (child.first_attribute()) {
                AddExtra(TextOf(m_text, child));
            }
            break;
        case NoteSlot::kType:
            if (child.first_attribute() ||
                NoteTypeOf(Trimmed(child.child_value())) != m_place.form->type) {
                AddExtra(TextOf(m_text, child));
            }
            break;
        case NoteSlot::kDots:
            m_dots += TextOf(m_text, child);
            m_dotsArePlain = m_dotsArePlain && !child.first_attribute();
            break;
        case NoteSlot::kTie:
            ReadTie(child, TextOf(m_text, child));
            break;
        case NoteSlot::kAccidental:
            if (IsRest()) {
                AddExtra(TextOf(m_text, child));
            } else {
                CreateNoteText(DetailTag::kAccidental, Slice(child));
            }
            break;
        case NoteSlot::kNotehead:
            m_notehead += TextOf(m_text, child);
            break;
        case NoteSlot::kStem:
            ReadStem(child);
            break;
        case NoteSlot::kBeams:
            m_beams += TextOf(m_text, child);
            break;
        case NoteSlot::kLyrics:
            ReadLyric(child);
            break;
        case NoteSlot::kNotations:
            ReadNotations(child);
            break;
        default:
            break;
    }
}

void NoteAttachments::ReadStem(pugi::xml_node stem) {
    EXENTRY& entry = *m_place.entry;
    const std::string_view direction = Trimmed(stem.child_value());
    const bool isPlain = !stem.first_attribute() && (direction == "up" || direction == "down");
    const u32 flags = HostEntryFlag::kFixedStem | (direction == "up" ? HostEntryFlag::kStemUp : 0U);
    if (IsFirst()) {
        if (isPlain) {
            entry.flags |= flags;
        } else {
            CreateEntryText(DetailTag::kStem, EntryTextKind::kStem, Slice(stem));
        }
        return;
    }
    constexpr u32 kBoth = HostEntryFlag::kFixedStem | HostEntryFlag::kStemUp;
    const EntryText same{EntryTextKind::kStem, 0, Slice(stem), 0};
    const Bytes* first = m_records.Find(DetailTag::kStem, RecordKey::OfEntry(entry.entryNumber, 0));
    const bool isSame =
        first != nullptr ? *first == BytesOf(same) : isPlain && (entry.flags & kBoth) == flags;
    if (isSame) {
        m_place.form->stemOnEachNote = true;
    } else {
        AddExtra(TextOf(m_text, stem));
    }
}

void NoteAttachments::ReadLyric(pugi::xml_node lyric) {
    EDTLyric2011 record{};
    const FragmentId fragment = Slice(lyric);
    record.textBlock = static_cast<u16>(IntegerOf(lyric.attribute("number").value()).value_or(1));
    record.syllable = static_cast<u16>(fragment);
    std::memcpy(reinterpret_cast<char*>(&record) + kLyricFragmentOffset, &fragment,
                sizeof(fragment));
    Create(DetailTag::kLyric, record);
}

void NoteAttachments::ReadTie(pugi::xml_node node, std::string_view element) {
    const std::string_view type = node.attribute("type").value();
    TieElements& tie = type == "start" ? m_tieStart : m_tieEnd;
    FragmentId& kept = std::strcmp(node.name(), "tied") == 0 ? tie.tied : tie.tie;
    if ((type != "start" && type != "stop") || kept != 0 || IsRest()) {
        AddExtra(element);
        return;
    }
    const bool isPlain = !node.first_attribute().next_attribute() && !node.first_child() &&
                         ElementName(element) == node.name();
    tie.plain = tie.plain && isPlain;
    kept = m_fragments.InternCopy(element);
}

void NoteAttachments::ReadNotations(pugi::xml_node notations) {
    std::string attributes{AttributesOf(m_text, notations)};
    for (const pugi::xml_node notation : notations.children()) {
        if (IsMarkup(notation)) {
            ReadNotation(notation, attributes);
            attributes = WithoutId(attributes);
        }
    }
}

void NoteAttachments::ReadNotation(pugi::xml_node notation, std::string_view attributes) {
    const std::string_view name = notation.name();
    std::string wrapped;
    std::string_view element = TextOf(m_text, notation);
    // A footnote must come first, which it would not after other notes' notations.
    const bool isEditorial = name == "footnote" || name == "level";
    if (!attributes.empty() || isEditorial) {
        wrapped = NotationsTag(attributes);
        element = wrapped.append(element).append("</notations>");
    }
    if (name == "tied") {
        ReadTie(notation, element);
        return;
    }
    if (IsSpanner(name) && ReadSpanner(notation, element, EntryTextKind::kNotation)) {
        return;
    }
    if (name == "tuplet") {
        m_brackets += element;
    } else if (name == "ornaments" && wrapped.empty() && !notation.first_attribute()) {
        ReadOrnaments(notation);
    } else if (!IsFirst() || (IsOfOneNote(name) && m_place.entry->noteCount > 0)) {
        AddExtra(element);
    } else if (name == "articulations" && wrapped.empty() && !notation.first_attribute()) {
        ReadArticulations(notation);
    } else {
        CreateEntryText(DetailTag::kArticulation, EntryTextKind::kNotation,
                        m_fragments.InternCopy(element));
    }
}

void NoteAttachments::ReadArticulations(pugi::xml_node articulations) {
    for (const pugi::xml_node child : articulations.children()) {
        if (IsMarkup(child)) {
            CreateEntryText(DetailTag::kArticulation, EntryTextKind::kArticulation, Slice(child));
        }
    }
}

// Elements of the chord's first note belong to the entry; lines may belong to any note.
void NoteAttachments::ReadOrnaments(pugi::xml_node ornaments) {
    std::string ofLaterNote;
    for (pugi::xml_node child = ornaments.first_child(); child; child = child.next_sibling()) {
        if (!IsMarkup(child)) {
            continue;
        }
        const pugi::xml_node ornament = child;
        const std::size_t begin = OffsetOf(child);
        while (std::strcmp(child.next_sibling().name(), "accidental-mark") == 0) {
            child = child.next_sibling();
        }
        const std::size_t end = NodeEnd(m_text, OffsetOf(child));
        const std::string_view text = m_text.substr(begin, end - begin);
        if (IsSpanner(ornament.name()) && ReadSpanner(ornament, text, EntryTextKind::kOrnament)) {
            continue;
        }
        if (IsFirst()) {
            CreateEntryText(DetailTag::kArticulation, EntryTextKind::kOrnament,
                            m_fragments.Intern(text));
        } else {
            ofLaterNote += text;
        }
    }
    if (!ofLaterNote.empty()) {
        AddExtra("<ornaments>" + ofLaterNote + "</ornaments>");
    }
}

bool NoteAttachments::ReadSpanner(pugi::xml_node spanner, std::string_view element,
                                  EntryTextKind kind) {
    SpannerEnding ending;
    if (!ReadLineEnd(spanner, ending)) {
        return false;
    }
    ending.voice = m_voice;
    ending.staff = m_place.staff;
    ending.measure = m_place.measure;
    ending.position = static_cast<i32>(RoundToUnits(m_place.start));
    ending.entry = m_place.entry->entryNumber;
    ending.fragment = m_fragments.InternCopy(element);
    const EXNOTE& note = m_place.entry->notes[m_place.noteIndex];
    ending.note = {note.pitch, note.second};
    const u32 line = m_spanners.Add(ending);
    if (ending.role != LineRole::kOnTheWay) {
        return true;
    }
    if (IsFirst()) {
        Create(DetailTag::kArticulation, EntryText{kind, 0, ending.fragment, line + 1});
    }
    return IsFirst();
}

void NoteAttachments::StoreExtras(const NoteElement& note) {
    m_extras += m_separateNotations + m_comments;
    if (note.rest) {
        m_extras += m_notehead;
        m_extras += m_dotsArePlain ? "" : m_dots;
        StoreRestExtras();
        return;
    }
    if (!m_extras.empty()) {
        CreateNoteText(DetailTag::kNoteExtras, m_fragments.InternCopy(m_extras));
    }
    if (!m_notehead.empty()) {
        CreateNoteText(DetailTag::kNotehead, m_fragments.InternCopy(m_notehead));
    }
    if (!m_dotsArePlain || note.dots != m_place.form->dots) {
        CreateNoteText(DetailTag::kDots, m_fragments.InternCopy(m_dots));
    }
}

void NoteAttachments::StoreRestExtras() {
    std::string look{BundleAttributes(m_extras)};
    std::string others;
    ForEachElement(m_extras, [&](std::string_view element) {
        (NoteChildOf(ElementName(element)).isLookOfRest ? look : others) += element;
    });
    if (!look.empty()) {
        CreateEntryText(DetailTag::kRestLook, EntryTextKind::kRestLook,
                        m_fragments.InternCopy(look));
    }
    if (!others.empty()) {
        CreateEntryText(DetailTag::kArticulation, EntryTextKind::kRestExtras,
                        m_fragments.InternCopy(others));
    }
}

void NoteAttachments::StoreTies() {
    EXNOTE& note = m_place.entry->notes[m_place.noteIndex];
    const auto store = [&](const TieElements& tie, u32 flag, u32 tag) {
        if ((tie.tie == 0 && tie.tied == 0) || m_place.entry->noteCount == 0) {
            return;
        }
        note.flags |= flag;
        if (!tie.plain || tie.tie == 0 || tie.tied == 0) {
            TieText record{};
            record.noteID = static_cast<u16>(m_place.noteIndex + 1);
            record.tie = tie.tie;
            record.tied = tie.tied;
            Create(tag, record);
        }
    };
    store(m_tieStart, NoteFlag::kTieStart, DetailTag::kTieStart);
    store(m_tieEnd, NoteFlag::kTieEnd, DetailTag::kTieEnd);
}

}  // namespace standin
