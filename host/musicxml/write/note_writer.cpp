#include "host/musicxml/write/note_writer.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "host/musicxml/lyric_numbers.h"
#include "host/musicxml/pitch.h"
#include "host/musicxml/time_ratio.h"

namespace standin {

namespace {

constexpr std::size_t kMaxDigits = 12;  // that reading takes, too
constexpr std::array<char, 7> kSteps{'C', 'D', 'E', 'F', 'G', 'A', 'B'};

}  // namespace

std::string DurationText(Rational length, Rational divisions) {
    i64 num = length.num * divisions.num;
    const i64 den = length.den * divisions.den;
    std::string text = num < 0 ? "-" : "";
    num = std::abs(num);
    text += std::to_string(num / den);
    num %= den;
    if (num != 0) {
        text += '.';
        while (num != 0 && text.size() <= kMaxDigits) {
            num *= 10;
            text += static_cast<char>('0' + num / den);
            num %= den;
        }
    }
    return num == 0 ? text : std::string{};
}

void NoteWriter::Write(const NoteContext& context, const EntryTexts& texts, std::string& out) {
    m_context = &context;
    m_texts = &texts;
    m_entry = context.time.entry;
    m_out = &out;
    const int count = std::max<int>(m_entry->noteCount, 1);
    for (int index = 0; index < count; ++index) {
        WriteNote(index);
    }
}

void NoteWriter::Element(std::string_view element) {
    m_out->append(m_childIndent).append(element);
}

void NoteWriter::Element(std::string_view name, std::string_view text) {
    m_out->append(m_childIndent).append(1, '<').append(name).append(1, '>').append(text);
    m_out->append("</").append(name).append(1, '>');
}

void NoteWriter::AddExtras(FragmentId id) {
    const std::string_view bundle = m_score.fragments[id];
    if (const std::string_view attributes = BundleAttributes(bundle); !attributes.empty()) {
        m_attributes.push_back(attributes);
    }
    ForEachElement(bundle, [this](std::string_view element) {
        m_extras.push_back({NoteChildOf(ElementName(element)).slot, element});
    });
}

void NoteWriter::CollectExtras(int index) {
    m_attributes.clear();
    m_extras.clear();
    if (IsRest()) {
        for (const EntryText& text : m_texts->texts) {
            if (text.kind == EntryTextKind::kRestLook || text.kind == EntryTextKind::kRestExtras) {
                AddExtras(text.fragment);
            }
        }
        return;
    }
    for (const NoteDetail& detail : m_texts->notes) {
        if (detail.tag == DetailTag::kNoteExtras && detail.noteID == m_entry->notes[index].noteID) {
            AddExtras(detail.fragment);
        }
    }
}

bool NoteWriter::Extras(NoteSlot slot) {
    bool any = false;
    for (const Extra& extra : m_extras) {
        if (extra.slot == slot) {
            Element(extra.element);
            any = true;
        }
    }
    return any;
}

// Attributes of the first bundle; a second one, from an equal note that joined, is ignored.
void NoteWriter::Attributes() {
    if (!m_attributes.empty()) {
        m_out->append(1, ' ').append(m_attributes.front());
    }
    if (IsRest() && (m_entry->flags & EntryFlag::kIgnore) != 0) {
        m_out->append(" print-object=\"no\"");
    }
}

std::string_view NoteWriter::DetailOfNote(u32 tag, u16 noteID, bool& has) const {
    for (const NoteDetail& detail : m_texts->notes) {
        if (detail.tag == tag && detail.noteID == noteID) {
            has = true;
            return m_score.fragments[detail.fragment];
        }
    }
    has = false;
    return {};
}

void NoteWriter::PitchOrRest(const EXNOTE& note) {
    if (IsRest()) {
        Element(Form().rest != 0 ? m_score.fragments[Form().rest] : "<rest/>");
        return;
    }
    if (note.second != 0) {
        Element(m_score.pitches[note.second]);
        return;
    }
    const WrittenPitch pitch = PitchOfField(note.pitch, m_context->fifths);
    const std::string inner = m_notationIndent;
    m_out->append(m_childIndent).append("<pitch>").append(inner).append("<step>");
    m_out->append(1, kSteps[static_cast<std::size_t>(pitch.step)]).append("</step>");
    if (pitch.alter != 0) {
        m_out->append(inner).append("<alter>").append(std::to_string(pitch.alter));
        m_out->append("</alter>");
    }
    m_out->append(inner).append("<octave>").append(std::to_string(pitch.octave));
    m_out->append("</octave>").append(m_childIndent).append("</pitch>");
}

void NoteWriter::Ties(const EXNOTE& note) {
    const auto write = [&](u32 flag, u32 tag, std::string_view plain) {
        if (IsRest() || (note.flags & flag) == 0) {
            return;
        }
        bool has = false;
        const std::string_view kept = DetailOfNote(tag, note.noteID, has);
        if (!has) {
            Element(plain);
        } else if (!kept.empty()) {
            Element(kept);
        }
    };
    write(NoteFlag::kTieEnd, DetailTag::kTieEnd, "<tie type=\"stop\"/>");
    write(NoteFlag::kTieStart, DetailTag::kTieStart, "<tie type=\"start\"/>");
    Extras(NoteSlot::kTie);
}

NoteValue NoteWriter::Value() const {
    const bool isKnown = Form().notated == m_entry->duration;
    return isKnown ? NoteValue{Form().type, Form().dots} : ValueOfLength(m_entry->duration);
}

void NoteWriter::Type() {
    const NoteValue value = Value();
    if (!Extras(NoteSlot::kType) && value.type != 0) {
        Element("type", NoteTypeName(value.type));
    }
}

void NoteWriter::Dots(const EXNOTE& note) {
    bool has = false;
    const std::string_view dots =
        IsRest() ? std::string_view{} : DetailOfNote(DetailTag::kDots, note.noteID, has);
    if (has) {
        ForEachElement(dots, [this](std::string_view dot) { Element(dot); });
        return;
    }
    const bool areKept = Extras(NoteSlot::kDots);
    for (int i = 0; i < Value().dots && !areKept; ++i) {
        Element("<dot/>");
    }
}

void NoteWriter::DetailsAndExtras(NoteSlot slot, u32 tag, const EXNOTE& note) {
    bool has = false;
    if (const std::string_view details = DetailOfNote(tag, note.noteID, has); has && !IsRest()) {
        ForEachElement(details, [this](std::string_view detail) { Element(detail); });
    }
    Extras(slot);
}

void NoteWriter::TimeModification() {
    if (IsGrace() || m_context->time.asWritten) {
        if (Form().timeModification != 0) {
            Element(m_score.fragments[Form().timeModification]);
        }
        return;
    }
    const TimeRatio known = m_context->time.ratio;
    const TimeRatio ratio = Fits(known, m_entry->duration, m_entry->actualDuration)
                                ? known
                                : RatioOf(m_entry->duration, m_entry->actualDuration);
    if (ratio.actual != ratio.normal) {
        m_out->append(m_childIndent).append("<time-modification><actual-notes>");
        m_out->append(std::to_string(ratio.actual)).append("</actual-notes><normal-notes>");
        m_out->append(std::to_string(ratio.normal)).append("</normal-notes></time-modification>");
    }
}

void NoteWriter::Stem(bool isFirst) {
    if (Extras(NoteSlot::kStem)) {
        return;
    }
    if (!IsRest() && !isFirst && !Form().stemOnEachNote) {
        return;
    }
    if (m_texts->stem != 0) {
        Element(m_score.fragments[m_texts->stem]);
    } else if ((m_entry->flags & HostEntryFlag::kFixedStem) != 0 && !IsRest()) {
        Element("stem", (m_entry->flags & HostEntryFlag::kStemUp) != 0 ? "up" : "down");
    }
}

void NoteWriter::Beams(bool isFirst) {
    if (isFirst) {
        ForEachElement(m_context->beams, [this](std::string_view beam) { Element(beam); });
    }
    Extras(NoteSlot::kBeams);
}

void NoteWriter::Lyrics() {
    const std::vector<std::string> numbers = LyricNumbers(m_score.fragments, m_texts->lyrics);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::string_view lyric = m_score.fragments[m_texts->lyrics[i].fragment];
        if (numbers[i].empty()) {
            Element(lyric);
        } else {
            Element(WithAttribute(lyric, "number", numbers[i]));
        }
    }
}

void NoteWriter::WriteChild(NoteSlot slot, int index) {
    const EXNOTE& note = m_entry->notes[index];
    switch (slot) {
        case NoteSlot::kGrace:
            if (IsGrace() && !Extras(slot)) {
                Element("<grace/>");
            }
            break;
        case NoteSlot::kChord:
            if (index > 0) {
                Element("<chord/>");
            }
            break;
        case NoteSlot::kPitch:
            PitchOrRest(note);
            break;
        case NoteSlot::kDuration:
            if (!IsGrace()) {
                Element("duration", DurationText(m_context->time.length, m_context->divisions));
            }
            break;
        case NoteSlot::kTie:
            Ties(note);
            break;
        case NoteSlot::kVoice:
            if (!m_context->voice.empty()) {
                Element("voice", m_context->voice);
            }
            break;
        case NoteSlot::kType:
            Type();
            break;
        case NoteSlot::kDots:
            Dots(note);
            break;
        case NoteSlot::kAccidental:
            DetailsAndExtras(slot, DetailTag::kAccidental, note);
            break;
        case NoteSlot::kTimeModification:
            TimeModification();
            break;
        case NoteSlot::kStem:
            Stem(index == 0);
            break;
        case NoteSlot::kNotehead:
            DetailsAndExtras(slot, DetailTag::kNotehead, note);
            break;
        case NoteSlot::kStaff:
            if (m_context->staff != 0) {
                Element("staff", std::to_string(m_context->staff));
            }
            break;
        case NoteSlot::kBeams:
            Beams(index == 0);
            break;
        case NoteSlot::kNotations:
            Notations(index);
            break;
        case NoteSlot::kLyrics:
            if (index == 0) {
                Lyrics();
            }
            break;
        default:
            Extras(slot);
            break;
    }
}

void NoteWriter::WriteNote(int index) {
    CollectExtras(index);
    m_out->append(m_indent).append("<note");
    Attributes();
    m_out->append(1, '>');
    for (std::size_t slot = 0; slot < static_cast<std::size_t>(NoteSlot::kCount); ++slot) {
        WriteChild(static_cast<NoteSlot>(slot), index);
    }
    m_out->append(m_indent).append("</note>");
}

}  // namespace standin
