#include "host/musicxml/write/note_writer.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "host/musicxml/lyric_numbers.h"
#include "host/musicxml/pitch.h"
#include "host/musicxml/write/time_ratio.h"

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
    using enum Slot;
    const std::string_view bundle = m_score.fragments[id];
    if (const std::string_view attributes = BundleAttributes(bundle); !attributes.empty()) {
        m_attributes.push_back(attributes);
    }
    ForEachElement(bundle, [this](std::string_view element) {
        const std::string_view name = ElementName(element);
        const Slot slot = name == "grace"                                  ? kGrace
                          : name == "cue"                                  ? kCue
                          : name == "tie"                                  ? kTie
                          : name == "instrument"                           ? kInstrument
                          : name == "footnote" || name == "level"          ? kEditorial
                          : name == "type"                                 ? kType
                          : name == "dot"                                  ? kDot
                          : name == "accidental"                           ? kAccidental
                          : name == "stem"                                 ? kStem
                          : name == "notehead" || name == "notehead-text"  ? kNotehead
                          : name == "beam"                                 ? kBeam
                          : name == "play"                                 ? kPlay
                          : name == "listen"                               ? kListen
                          : name.starts_with('!') || name.starts_with('?') ? kLast
                                                                           : kNotations;
        m_extras.push_back({slot, element});
    });
}

void NoteWriter::CollectExtras(int index) {
    m_attributes.clear();
    m_extras.clear();
    if (m_entry->noteCount == 0) {
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

bool NoteWriter::Extras(Slot slot) {
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
    const bool hiddenRest = m_entry->noteCount == 0 && (m_entry->flags & EntryFlag::kIgnore) != 0;
    if (hiddenRest) {
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

void NoteWriter::PitchOf(const EXNOTE& note) {
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
        if ((note.flags & flag) == 0) {
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
}

void NoteWriter::TypeAndDots(u16 noteID, bool isRest) {
    const WrittenForm& form = m_score.forms[m_entry->fieldAt12];
    const bool isKnown = form.notated == m_entry->duration;
    const NoteValue value =
        isKnown ? NoteValue{form.type, form.dots} : ValueOfLength(m_entry->duration);
    if (!Extras(Slot::kType) && value.type != 0) {
        Element("type", NoteTypeName(value.type));
    }
    bool has = false;
    const std::string_view dots =
        isRest ? std::string_view{} : DetailOfNote(DetailTag::kDots, noteID, has);
    if (has) {
        ForEachElement(dots, [this](std::string_view dot) { Element(dot); });
        return;
    }
    const bool areKept = Extras(Slot::kDot);
    for (int i = 0; i < value.dots && !areKept; ++i) {
        Element("<dot/>");
    }
}

void NoteWriter::TimeModification() {
    const WrittenForm& form = m_score.forms[m_entry->fieldAt12];
    const bool isGrace = (m_entry->flags & EntryFlag::kGrace) != 0;
    if (isGrace || m_context->time.asWritten) {
        if (form.timeModification != 0) {
            Element(m_score.fragments[form.timeModification]);
        }
        return;
    }
    const TimeRatio ratio = RatioOf(m_entry->duration, m_entry->actualDuration);
    if (ratio.actual != ratio.normal) {
        m_out->append(m_childIndent).append("<time-modification><actual-notes>");
        m_out->append(std::to_string(ratio.actual)).append("</actual-notes><normal-notes>");
        m_out->append(std::to_string(ratio.normal)).append("</normal-notes></time-modification>");
    }
}

void NoteWriter::Stem(bool isFirst) {
    if (Extras(Slot::kStem)) {
        return;
    }
    const WrittenForm& form = m_score.forms[m_entry->fieldAt12];
    if (m_entry->noteCount > 0 && !isFirst && !form.stemOnEachNote) {
        return;
    }
    if (m_texts->stem != 0) {
        Element(m_score.fragments[m_texts->stem]);
    } else if ((m_entry->flags & HostEntryFlag::kFixedStem) != 0 && m_entry->noteCount > 0) {
        Element("stem", (m_entry->flags & HostEntryFlag::kStemUp) != 0 ? "up" : "down");
    }
}

void NoteWriter::Beams(bool isFirst) {
    if (isFirst) {
        ForEachElement(m_context->beams, [this](std::string_view beam) { Element(beam); });
    }
    Extras(Slot::kBeam);
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

void NoteWriter::WriteNote(int index) {
    const bool isRest = m_entry->noteCount == 0;
    const EXNOTE& note = m_entry->notes[index];
    const bool isGrace = (m_entry->flags & EntryFlag::kGrace) != 0;
    CollectExtras(index);
    m_out->append(m_indent).append("<note");
    Attributes();
    m_out->append(1, '>');
    if (isGrace && !Extras(Slot::kGrace)) {
        Element("<grace/>");
    }
    Extras(Slot::kCue);
    if (index > 0) {
        Element("<chord/>");
    }
    const WrittenForm& form = m_score.forms[m_entry->fieldAt12];
    if (isRest) {
        Element(form.rest != 0 ? m_score.fragments[form.rest] : "<rest/>");
    } else {
        PitchOf(note);
    }
    if (!isGrace) {
        Element("duration", DurationText(m_context->time.length, m_context->divisions));
    }
    if (!isRest) {
        Ties(note);
    }
    Extras(Slot::kTie);
    Extras(Slot::kInstrument);
    Extras(Slot::kEditorial);
    if (!m_context->voice.empty()) {
        Element("voice", m_context->voice);
    }
    TypeAndDots(note.noteID, isRest);
    bool has = false;
    if (const std::string_view accidental = DetailOfNote(DetailTag::kAccidental, note.noteID, has);
        has && !isRest) {
        Element(accidental);
    }
    Extras(Slot::kAccidental);
    TimeModification();
    Stem(index == 0);
    if (const std::string_view heads = DetailOfNote(DetailTag::kNotehead, note.noteID, has);
        has && !isRest) {
        ForEachElement(heads, [this](std::string_view head) { Element(head); });
    }
    Extras(Slot::kNotehead);
    if (m_context->staff != 0) {
        Element("staff", std::to_string(m_context->staff));
    }
    Beams(index == 0);
    Notations(index);
    if (index == 0) {
        Lyrics();
    }
    Extras(Slot::kPlay);
    Extras(Slot::kListen);
    Extras(Slot::kLast);
    m_out->append(m_indent).append("</note>");
}

}  // namespace standin
