// Measures with tuplets, from a few words per note.
#pragma once

#include <regex>
#include <sstream>
#include <string>
#include <string_view>

#include "tests/unit/musicxml_support.h"

namespace standin {

// Notes are parted by commas: pitch or r, type, and in any order
//   12     the duration in 36ths of a quarter note
//   3:2    the ratio that <time-modification> gives
//   [ ]    a bracket numbered 1 starts, stops; { } one numbered 2
//   v2 s2  voice and staff, else 1
//   g      a grace note; & a note of the chord; x not shown
// "back 36" and "on 36" mean <backup> and <forward>.
class TupletMeasure {
public:
    static std::string Text(std::string_view notes) {
        std::string text;
        std::istringstream all{std::string{notes}};
        for (std::string note; std::getline(all, note, ',');) {
            text += TupletMeasure{}.NoteText(note);
        }
        return text;
    }

private:
    std::string NoteText(const std::string& note) {
        std::istringstream words{note};
        std::string pitch;
        std::string type;
        words >> pitch >> type;
        if (pitch == "back" || pitch == "on") {
            return pitch == "back" ? Backup(std::stoi(type)) : Forward(std::stoi(type));
        }
        for (std::string word; words >> word;) {
            Take(word);
        }
        std::string more = m_ratio + "<staff>" + m_staff + "</staff>";
        more += m_brackets.empty() ? "" : "<notations>" + m_brackets + "</notations>";
        std::string text = Note({.pitch = pitch,
                                 .duration = m_duration,
                                 .type = type,
                                 .voice = m_voice,
                                 .more = more,
                                 .first = m_first});
        return m_hidden ? text.replace(0, 6, "<note print-object=\"no\">") : text;
    }

    void Take(const std::string& word) {
        const auto ratio = word.find(':');
        const char sign = word.front();
        if (ratio != word.npos) {
            m_ratio = "<time-modification><actual-notes>" + word.substr(0, ratio) +
                      "</actual-notes><normal-notes>" + word.substr(ratio + 1) +
                      "</normal-notes></time-modification>";
        } else if (std::string_view{"[]{}"}.find(sign) != std::string_view::npos) {
            m_brackets += std::string{"<tuplet type=\""} +
                          (sign == '[' || sign == '{' ? "start" : "stop") + "\" number=\"" +
                          (sign == '[' || sign == ']' ? "1" : "2") + "\"/>";
        } else if (sign == 'v' || sign == 's') {
            (sign == 'v' ? m_voice : m_staff) = word.substr(1);
        } else if (sign == 'x') {
            m_hidden = true;
        } else if (sign == 'g' || sign == '&') {
            m_first += sign == 'g' ? "<grace/>" : "<chord/>";
        } else {
            m_duration = std::stoi(word);
        }
    }

    int m_duration = 0;
    std::string m_voice = "1";
    std::string m_staff = "1";
    std::string m_ratio;
    std::string m_brackets;
    std::string m_first;
    bool m_hidden = false;
};

// A score of one part with two staves and these measures.
inline std::string TupletScore(const std::vector<std::string_view>& measures) {
    std::vector<std::string> texts;
    for (const std::string_view measure : measures) {
        const std::string divisions =
            texts.empty() ? "<attributes><divisions>36</divisions></attributes>" : "";
        texts.push_back(divisions + TupletMeasure::Text(measure));
    }
    return ScoreText(texts, "<staves>2</staves>");
}

// The <tuplet> elements with the pitch of their notes, in document order.
inline std::string BracketsIn(const std::string& text) {
    static const std::regex kParts{
        "<step>(.)|<rest|<tuplet[^>]*type=\"(.)[^>]*number=\"(.)\"|print-object=\"no\""};
    std::string found;
    std::string note;
    for (std::sregex_iterator at{text.begin(), text.end(), kParts}, end; at != end; ++at) {
        const std::string step = (*at)[1];
        const std::string part = at->str();
        if (!step.empty() || part == "<rest") {
            note = step.empty() ? "r" : step;
        } else if (part.starts_with("<tuplet")) {
            const bool starts = (*at)[2] == "s" && part.find("start") != part.npos;
            found += ' ' + note + (starts ? "[" : "]") + (*at)[3].str();
        }
    }
    return found;
}

}  // namespace standin
