#include "host/readback/note_reading.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_map>

#include "host/readback/canonical_xml.h"
#include "host/readback/note_words.h"
#include "host/texts/texts.h"

namespace standin::readback {
namespace {

enum class Child : u8 { kForm, kReadBefore, kTie, kNotations, kLyric, kLook, kExtra };

Child ChildOf(std::string_view name) {
    static const std::unordered_map<std::string_view, Child> kChildren{
        {"type", Child::kForm},
        {"dot", Child::kForm},
        {"cue", Child::kForm},
        {"time-modification", Child::kForm},
        {"grace", Child::kForm},
        {"pitch", Child::kForm},
        {"unpitched", Child::kForm},
        {"chord", Child::kReadBefore},
        {"duration", Child::kReadBefore},
        {"voice", Child::kReadBefore},
        {"staff", Child::kReadBefore},
        {"tie", Child::kTie},
        {"notations", Child::kNotations},
        {"lyric", Child::kLyric},
        {"stem", Child::kLook},
        {"beam", Child::kLook},
        {"rest", Child::kLook},
    };
    const auto found = kChildren.find(name);
    return found == kChildren.end() ? Child::kExtra : found->second;
}

// Elements that belong to one note of a chord, not to the whole chord.
bool IsOfOneNote(std::string_view notation) {
    constexpr std::array<std::string_view, 6> kOfOneNote{
        "technical", "arpeggiate", "non-arpeggiate", "accidental-mark", "footnote", "level"};
    return std::find(kOfOneNote.begin(), kOfOneNote.end(), notation) != kOfOneNote.end();
}

bool HoldsMarks(std::string_view notation) {
    return notation == "articulations" || notation == "ornaments" || notation == "technical";
}

// Elements that a rest may lose when music replaces it.
bool IsLookOfRest(pugi::xml_node child) {
    return std::string_view{child.name()} == "instrument" && child.parent().child("rest");
}

}  // namespace

LineEnd::Type TypeOfLine(pugi::xml_node line) {
    constexpr std::array<std::string_view, 6> kStarts{"start", "crescendo", "diminuendo",
                                                      "up",    "down",      "sostenuto"};
    const std::string_view type = line.attribute("type").value();
    if (std::find(kStarts.begin(), kStarts.end(), type) != kStarts.end()) {
        return LineEnd::Type::kStart;
    }
    return type == "stop" ? LineEnd::Type::kStop : LineEnd::Type::kOther;
}

void NoteReading::Read(pugi::xml_node node, ExactTime duration) {
    Chord& chord = m_score.chords.back();
    Note& note = m_score.notes.emplace_back();
    note.chord = static_cast<u32>(m_score.chords.size() - 1);
    note.duration = duration;
    note.attachments.begin = static_cast<u32>(m_score.attachments.size());
    note.pitch = m_texts.Of(chord.rest ? "rest" : PitchWords(node));
    note.words = m_texts.Of(chord.rest ? Say(Text::kRestOfLength, {LengthWords(node)})
                                       : PitchWords(node) + ' ' + LengthWords(node));
    chord.notes.end = static_cast<u32>(m_score.notes.size());
    chord.modified = chord.modified || node.child("time-modification");
    m_form.clear();
    const std::string attributes = CanonicalAttributes(
        node, chord.rest ? std::string_view{"print-object"} : std::string_view{});
    if (!attributes.empty()) {
        Attach("<note" + attributes + '>', true, chord.rest);
    }
    for (const pugi::xml_node child : node.children()) {
        if (child.type() == pugi::node_element) {
            ReadChild(child);
        }
    }
    Current().form = m_texts.Of(m_form);
    Current().attachments.end = static_cast<u32>(m_score.attachments.size());
}

void NoteReading::ReadChild(pugi::xml_node child) {
    switch (ChildOf(child.name())) {
        case Child::kForm:
            m_form += CanonicalXml(child);
            break;
        case Child::kReadBefore:
            break;
        case Child::kTie:
            ReadTie(child);
            break;
        case Child::kNotations:
            ReadNotations(child);
            break;
        case Child::kLyric:
            Attach(CanonicalXml(child), false);
            m_score.attachments.back().lyric = m_texts.Of(child.attribute("number").as_string("1"));
            break;
        case Child::kLook:
            Attach(CanonicalXml(child), false, true);
            break;
        case Child::kExtra:
            Attach(CanonicalXml(child), true, IsLookOfRest(child));
            break;
    }
}

void NoteReading::ReadNotations(pugi::xml_node notations) {
    // An id must be unique in a file, so only the first of several pieces can keep it.
    const std::string attributes = CanonicalAttributes(notations, "id");
    const std::string wrapping = attributes.empty() ? "" : "<notations" + attributes + '>';
    for (const pugi::xml_node notation : notations.children()) {
        if (notation.type() == pugi::node_element) {
            ReadNotation(notation, wrapping);
        }
    }
}

void NoteReading::ReadNotation(pugi::xml_node notation, const std::string& wrapping) {
    const std::string_view name = notation.name();
    if (name == "tied") {
        ReadTie(notation);
    } else if (IsLine(name)) {
        ReadLine(notation, wrapping + CanonicalXml(notation));
    } else if (HoldsMarks(name)) {
        const std::string attributes = CanonicalAttributes(notation);
        ReadOrnaments(notation, attributes.empty()
                                    ? wrapping
                                    : wrapping + '<' + std::string{name} + attributes + '>');
    } else {
        Attach(wrapping + CanonicalXml(notation), IsOfOneNote(name));
    }
}

// An <accidental-mark> belongs to the ornament that it follows.
void NoteReading::ReadOrnaments(pugi::xml_node marks, const std::string& wrapping) {
    for (pugi::xml_node mark = marks.first_child(); mark; mark = mark.next_sibling()) {
        if (mark.type() != pugi::node_element) {
            continue;
        }
        const pugi::xml_node first = mark;
        std::string text = wrapping + CanonicalXml(mark);
        while (std::string_view{mark.next_sibling().name()} == "accidental-mark") {
            mark = mark.next_sibling();
            text += CanonicalXml(mark);
        }
        if (IsLine(first.name())) {
            ReadLine(first, text);
        } else {
            Attach(std::move(text), IsOfOneNote(marks.name()));
        }
    }
}

void NoteReading::ReadLine(pugi::xml_node line, const std::string& text) {
    const u32 chord = Current().chord;
    m_score.ends.push_back({TypeOfLine(line), m_texts.Of(line.name()),
                            m_texts.Of(line.attribute("number").as_string("1")), m_texts.Of(text),
                            m_score.chords[chord].place, chord,
                            static_cast<u32>(m_score.notes.size() - 1)});
}

void NoteReading::ReadTie(pugi::xml_node tie) {
    const LineEnd::Type type = TypeOfLine(tie);
    Current().tieStart = Current().tieStart || type == LineEnd::Type::kStart;
    Current().tieStop = Current().tieStop || type == LineEnd::Type::kStop;
    Attach(CanonicalXml(tie), true);
}

void NoteReading::Attach(std::string text, bool ofNote, bool look) {
    m_score.attachments.push_back({m_texts.Of(std::move(text)), kNone, ofNote, look});
}

}  // namespace standin::readback
