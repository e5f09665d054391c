// Reads one <note> of a score.
#pragma once

#include <pugixml.hpp>
#include <string>
#include <vector>

#include "host/readback/score_content.h"
#include "host/readback/texts.h"

namespace standin::readback {

class NoteReading {
public:
    NoteReading(Score& score, Texts& texts) : m_score{score}, m_texts{texts} {}

    // Adds the note to the score's last chord, with its attachments and ends of lines.
    void Read(pugi::xml_node note, ExactTime duration);

private:
    void ReadChild(pugi::xml_node child);
    void ReadNotations(pugi::xml_node notations);
    void ReadNotation(pugi::xml_node notation, const std::string& wrapping);
    void ReadOrnaments(pugi::xml_node ornaments, const std::string& wrapping);
    void ReadLine(pugi::xml_node line, const std::string& text);
    void ReadTie(pugi::xml_node tie);
    void Attach(std::string text, bool ofNote, bool look = false);
    Note& Current() { return m_score.notes.back(); }

    Score& m_score;
    Texts& m_texts;
    std::string m_form;
};

// The role of a line's "type".
LineEnd::Type TypeOfLine(pugi::xml_node line);

}  // namespace standin::readback
