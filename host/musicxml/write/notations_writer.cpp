// The <notations> of a note.
#include <algorithm>
#include <charconv>

#include "host/musicxml/write/note_writer.h"

namespace standin {
namespace {

// The element with that number, also if it is inside <notations>.
std::string WithNumber(std::string_view element, int number) {
    const std::string text = std::to_string(number);
    if (ElementName(element) != "notations") {
        return WithAttribute(element, "number", text);
    }
    const std::size_t inner = TagEnd(element, 0);
    return std::string{element.substr(0, inner)} +
           WithAttribute(element.substr(inner), "number", text);
}

}  // namespace

void NoteWriter::AddNotation(std::string_view element) {
    const bool isSeparate = ElementName(element) == "notations";
    const bool isOrnament = ElementName(element) == "wavy-line";
    (isSeparate ? m_separateNotations : isOrnament ? m_ornaments : m_notations).push_back(element);
}

void NoteWriter::CollectTied(const EXNOTE& note, u32 flag, u32 tag) {
    if ((note.flags & flag) == 0) {
        return;
    }
    for (const NoteDetail& detail : m_texts->notes) {
        if (detail.tag == tag && detail.noteID == note.noteID) {
            if (detail.second != 0) {
                AddNotation(m_score.fragments[detail.second]);
            }
            return;
        }
    }
    AddNotation(flag == NoteFlag::kTieStart ? "<tied type=\"start\"/>" : "<tied type=\"stop\"/>");
}

void NoteWriter::CollectSpanners(int index) {
    for (const SpannerAtEntry& end :
         SpannersOfNote(*m_entry, *m_texts, index, m_numbers.Lines(), m_score.fragments)) {
        AddNotation(Numbered(end.fragment, m_numbers.NewOfShape(end.shape)));
    }
}

// The element, with the number when there is a new one.
std::string_view NoteWriter::Numbered(FragmentId element, std::optional<int> number) {
    const std::string_view text = m_score.fragments[element];
    return number ? m_made.emplace_back(WithNumber(text, *number)) : text;
}

void NoteWriter::Container(std::string_view name, const std::vector<std::string_view>& elements) {
    if (elements.empty()) {
        return;
    }
    m_out->append(m_notationIndent).append(1, '<').append(name).append(1, '>');
    for (const std::string_view element : elements) {
        m_out->append(m_notationIndent).append(element);
    }
    m_out->append(m_notationIndent).append("</").append(name).append(1, '>');
}

void NoteWriter::Notations(int index) {
    m_notations.clear();
    m_separateNotations.clear();
    m_articulations.clear();
    m_ornaments.clear();
    m_made.clear();
    if (m_entry->noteCount > 0) {
        const EXNOTE& note = m_entry->notes[index];
        CollectTied(note, NoteFlag::kTieEnd, DetailTag::kTieEnd);
        CollectTied(note, NoteFlag::kTieStart, DetailTag::kTieStart);
    }
    CollectSpanners(index);
    if (index == 0) {
        ForEachElement(m_context->brackets,
                       [this](std::string_view element) { AddNotation(element); });
        for (const EntryText& text : m_texts->texts) {
            const std::string_view element = Numbered(
                text.fragment,
                text.lineOnItsWay == 0 ? std::nullopt : m_numbers.NewOf(text.lineOnItsWay - 1));
            if (text.kind == EntryTextKind::kArticulation) {
                m_articulations.push_back(element);
            } else if (text.kind == EntryTextKind::kOrnament) {
                m_ornaments.push_back(element);
            } else if (text.kind == EntryTextKind::kNotation) {
                AddNotation(element);
            }
        }
    }
    for (const Extra& extra : m_extras) {
        if (extra.slot == NoteSlot::kNotations) {
            AddNotation(extra.element);
        }
    }
    if (!m_notations.empty() || !m_articulations.empty() || !m_ornaments.empty()) {
        m_out->append(m_childIndent).append("<notations>");
        for (const std::string_view element : m_notations) {
            m_out->append(m_notationIndent).append(element);
        }
        Container("ornaments", m_ornaments);
        Container("articulations", m_articulations);
        m_out->append(m_childIndent).append("</notations>");
    }
    for (const std::string_view element : m_separateNotations) {
        Element(element);
    }
}

}  // namespace standin
