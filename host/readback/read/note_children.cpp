#include "host/readback/read/note_children.h"

#include <algorithm>
#include <string>

#include "host/readback/read/canonical_xml.h"

namespace standin::readback {
namespace {

Child ChildOf(std::string_view name) {
    static const std::unordered_map<std::string_view, Child> kChildren{
        {"type", Child::kForm},
        {"dot", Child::kForm},
        {"cue", Child::kForm},
        {"pitch", Child::kForm},
        {"unpitched", Child::kForm},
        {"time-modification", Child::kTimeModification},
        {"grace", Child::kGrace},
        {"chord", Child::kChord},
        {"duration", Child::kDuration},
        {"voice", Child::kVoice},
        {"staff", Child::kStaff},
        {"tie", Child::kTie},
        {"notations", Child::kNotations},
        {"lyric", Child::kLyric},
        {"stem", Child::kLook},
        {"beam", Child::kLook},
        {"rest", Child::kRest},
        {"instrument", Child::kInstrument},
    };
    const auto found = kChildren.find(name);
    return found == kChildren.end() ? Child::kExtra : found->second;
}

}  // namespace

void NoteChildren::Read(pugi::xml_node note) {
    m_note = note;
    m_all.clear();
    for (const pugi::xml_node child : note.children()) {
        if (child.type() == pugi::node_element) {
            const auto [known, isNew] = m_known.try_emplace(m_elements.SourceOf(child));
            if (isNew) {
                known->second = Classify(child);
            }
            m_all.push_back({child, known->second.kind, known->second.value});
        }
    }
}

const NoteChildren::Element* NoteChildren::Find(Child kind) const {
    const auto found = std::ranges::find(m_all, kind, &Element::kind);
    return found == m_all.end() ? nullptr : &*found;
}

NoteChildren::Element NoteChildren::Classify(pugi::xml_node child) {
    Element element{child, ChildOf(child.name()), 0};
    if (element.kind == Child::kVoice) {
        const std::string voice = TrimmedValue(child);
        element.value = m_elements.AllTexts().Of(voice.empty() ? "1" : voice);
    } else if (element.kind == Child::kStaff) {
        element.value = child.text().as_uint(1);
    } else if (element.kind != Child::kNotations) {
        element.value = m_elements.AllTexts().Of(CanonicalXml(child));
    }
    return element;
}

}  // namespace standin::readback
