#include "host/readback/read/note_reading.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <numeric>
#include <string_view>

#include "host/readback/read/canonical_xml.h"
#include "host/readback/read/note_words.h"
#include "host/texts/texts.h"

namespace standin::readback {
namespace {

// Elements that belong to one note of a chord, not to the whole chord.
bool IsOfOneNote(std::string_view notation) {
    constexpr std::array<std::string_view, 6> kOfOneNote{
        "technical", "arpeggiate", "non-arpeggiate", "accidental-mark", "footnote", "level"};
    return std::ranges::find(kOfOneNote, notation) != kOfOneNote.end();
}

bool HoldsMarks(std::string_view notation) {
    return notation == "articulations" || notation == "ornaments" || notation == "technical";
}

}  // namespace

LineEnd::Type TypeOfLine(pugi::xml_node line) {
    constexpr std::array<std::string_view, 6> kStarts{"start", "crescendo", "diminuendo",
                                                      "up",    "down",      "sostenuto"};
    const std::string_view type = line.attribute("type").value();
    if (std::ranges::find(kStarts, type) != kStarts.end()) {
        return LineEnd::Type::kStart;
    }
    return type == "stop" ? LineEnd::Type::kStop : LineEnd::Type::kOther;
}

std::string NumberOfLine(pugi::xml_node line) {
    std::string_view text = line.attribute("number").value();
    constexpr std::string_view kSpaces = " \t\r\n";
    text.remove_prefix(std::min(text.find_first_not_of(kSpaces), text.size()));
    text = text.substr(0, text.find_last_not_of(kSpaces) + 1);
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber = error == std::errc{} && end == text.data() + text.size();
    return std::to_string(isNumber ? number : 1);
}

void NoteReading::Read(const NoteChildren& children, ExactTime duration) {
    Chord& chord = m_score.chords.back();
    Note& note = m_score.notes.emplace_back();
    note.chord = static_cast<u32>(m_score.chords.size() - 1);
    note.duration = duration;
    note.attachments.begin = static_cast<u32>(m_score.attachments.size());
    note.form = m_texts.Of({});
    chord.notes.end = static_cast<u32>(m_score.notes.size());
    const pugi::xml_node node = children.Note();
    if (node.first_attribute()) {
        const std::string attributes = CanonicalAttributes(
            node, chord.rest ? std::string_view{"print-object"} : std::string_view{});
        if (!attributes.empty()) {
            Attach(m_texts.Of("<note" + attributes + '>'), true, chord.rest);
        }
    }
    const bool isRest = children.Has(Child::kRest);
    for (const NoteChildren::Element& child : children.All()) {
        ReadChild(child, isRest);
    }
    const Names& names = NamesOf(node, note.form, chord.rest);
    note.pitch = names.pitch;
    note.words = names.words;
    note.attachments.end = static_cast<u32>(m_score.attachments.size());
}

const NoteReading::Names& NoteReading::NamesOf(pugi::xml_node note, u32 form, bool isRest) {
    const auto [names, isNew] = m_names.try_emplace(u64{form} << 1U | (isRest ? 1U : 0U));
    if (isNew) {
        names->second = {m_texts.Of(isRest ? "rest" : PitchWords(note)),
                         m_texts.Of(isRest ? Say(Text::kRestOfLength, {LengthWords(note)})
                                           : PitchWords(note) + ' ' + LengthWords(note))};
    }
    return names->second;
}

void NoteReading::ReadChild(const NoteChildren::Element& child, bool isRest) {
    switch (child.kind) {
        case Child::kForm:
        case Child::kGrace:
            Current().form = m_texts.Joined(Current().form, child.value);
            break;
        case Child::kTimeModification:
            ReadTimeModification(child);
            break;
        case Child::kChord:
        case Child::kDuration:
        case Child::kVoice:
        case Child::kStaff:
            break;
        case Child::kTie:
            ReadTie(child.node, child.value);
            break;
        case Child::kNotations:
            ReadNotations(child.node);
            break;
        case Child::kLyric:
            Attach(child.value, false);
            m_score.attachments.back().lyric =
                m_texts.Of(child.node.attribute("number").as_string("1"));
            break;
        case Child::kLook:
        case Child::kRest:
            Attach(child.value, false, true);
            break;
        case Child::kInstrument:  // a rest may lose it to music that takes its place
            Attach(child.value, true, isRest);
            break;
        case Child::kExtra:
            Attach(child.value, true);
            break;
    }
}

// A note is as long in 6:4 as in 3:2. The ratio as it is written is the chord's, like its brackets.
void NoteReading::ReadTimeModification(const NoteChildren::Element& child) {
    const i64 actual = child.node.child("actual-notes").text().as_int(1);
    const i64 normal = child.node.child("normal-notes").text().as_int(1);
    const i64 divisor = std::max<i64>(std::gcd(actual, normal), 1);
    Current().form =
        m_texts.Joined(Current().form, m_texts.Of("time " + std::to_string(actual / divisor) + ':' +
                                                  std::to_string(normal / divisor)));
    m_score.chords.back().ratio = child.value;
}

void NoteReading::ReadNotations(pugi::xml_node notations) {
    // An id must be unique in a file, so only the first of several pieces can keep it.
    const std::string attributes = CanonicalAttributes(notations, "id");
    const u32 wrapping = m_texts.Of(attributes.empty() ? "" : "<notations" + attributes + '>');
    for (const pugi::xml_node notation : notations.children()) {
        if (notation.type() == pugi::node_element) {
            ReadNotation(notation, wrapping);
        }
    }
}

void NoteReading::ReadNotation(pugi::xml_node notation, u32 wrapping) {
    const std::string_view name = notation.name();
    if (name == "tied") {
        ReadTie(notation, m_elements.Of(notation));
    } else if (IsLine(name)) {
        ReadLine(notation, m_texts.Joined(wrapping, m_elements.Of(notation)));
    } else if (HoldsMarks(name)) {
        const std::string attributes = CanonicalAttributes(notation);
        const u32 own =
            m_texts.Of(attributes.empty() ? "" : '<' + std::string{name} + attributes + '>');
        ReadOrnaments(notation, m_texts.Joined(wrapping, own));
    } else {
        Attach(m_texts.Joined(wrapping, m_elements.Of(notation)), IsOfOneNote(name));
    }
}

// An <accidental-mark> belongs to the ornament that it follows.
void NoteReading::ReadOrnaments(pugi::xml_node marks, u32 wrapping) {
    for (pugi::xml_node mark = marks.first_child(); mark; mark = mark.next_sibling()) {
        if (mark.type() != pugi::node_element) {
            continue;
        }
        const pugi::xml_node first = mark;
        u32 text = m_texts.Joined(wrapping, m_elements.Of(mark));
        while (std::string_view{mark.next_sibling().name()} == "accidental-mark") {
            mark = mark.next_sibling();
            text = m_texts.Joined(text, m_elements.Of(mark));
        }
        if (IsLine(first.name())) {
            ReadLine(first, text);
        } else {
            Attach(text, IsOfOneNote(marks.name()));
        }
    }
}

void NoteReading::ReadLine(pugi::xml_node line, u32 text) {
    const u32 chord = Current().chord;
    m_score.ends.push_back({TypeOfLine(line), m_texts.Of(line.name()),
                            m_texts.Of(NumberOfLine(line)), text, m_score.chords[chord].place,
                            chord, static_cast<u32>(m_score.notes.size() - 1)});
}

void NoteReading::ReadTie(pugi::xml_node tie, u32 text) {
    const LineEnd::Type type = TypeOfLine(tie);
    Current().tieStart = Current().tieStart || type == LineEnd::Type::kStart;
    Current().tieStop = Current().tieStop || type == LineEnd::Type::kStop;
    Attach(text, true);
}

void NoteReading::Attach(u32 text, bool ofNote, bool look) {
    m_score.attachments.push_back({text, kNone, ofNote, look});
}

}  // namespace standin::readback
