// Reads one <note> of a score.
#pragma once

#include <pugixml.hpp>
#include <string>
#include <vector>

#include "host/readback/read/note_children.h"
#include "host/readback/score_content.h"

namespace standin::readback {

class NoteReading {
public:
    NoteReading(Score& score, ElementTexts& elements)
        : m_score{score}, m_elements{elements}, m_texts{elements.AllTexts()} {}

    // Adds the note to the score's last chord, with its attachments and ends of lines.
    void Read(const NoteChildren& note, ExactTime duration);

private:
    struct Names {
        u32 pitch = 0;
        u32 words = 0;
    };

    void ReadChild(const NoteChildren::Element& child, bool isRest);
    void ReadTimeModification(const NoteChildren::Element& child);
    void ReadNotations(pugi::xml_node notations);
    void ReadNotation(pugi::xml_node notation, u32 wrapping);
    void ReadOrnaments(pugi::xml_node ornaments, u32 wrapping);
    void ReadLine(pugi::xml_node line, u32 text);
    void ReadTie(pugi::xml_node tie, u32 text);
    void Attach(u32 text, bool ofNote, bool look = false);
    const Names& NamesOf(pugi::xml_node note, u32 form, bool isRest);
    Note& Current() { return m_score.notes.back(); }

    Score& m_score;
    ElementTexts& m_elements;
    Texts& m_texts;
    std::unordered_map<u64, Names> m_names;  // by form and whether it is a rest
};

// The role of a line's "type".
LineEnd::Type TypeOfLine(pugi::xml_node line);

// The number that distinguishes it from other lines, " 02" as "2"; "1" when there is none.
std::string NumberOfLine(pugi::xml_node line);

}  // namespace standin::readback
