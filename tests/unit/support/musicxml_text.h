// MusicXML texts for tests, from a few characters.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace standin {

// A score of one part with these measures. The first begins with 2 divisions a quarter, 4/4.
inline std::string ScoreText(const std::vector<std::string>& measures,
                             std::string_view attributes = {}) {
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<score-partwise version=\"4.0\">\n"
        "<part-list><score-part id=\"P1\"><part-name>Piano</part-name></score-part></part-list>\n"
        "<part id=\"P1\">\n";
    int number = 0;
    for (const std::string& measure : measures) {
        text += "<measure number=\"" + std::to_string(++number) + "\">\n";
        if (number == 1) {
            text += "<attributes><divisions>2</divisions>";
            text += attributes;
            text += "</attributes>\n";
        }
        text.append(measure).append("</measure>\n");
    }
    return text + "</part>\n</score-partwise>\n";
}

struct NoteOf {
    std::string_view pitch = "C4";  // step, octave; "r" = a rest
    int duration = 2;
    std::string_view type = "quarter";
    std::string_view voice = "1";
    std::string_view more = {};   // what follows the type
    std::string_view first = {};  // what precedes the pitch
};

inline std::string Note(const NoteOf& note) {
    const std::string pitch{note.pitch};
    std::string text = "<note>" + std::string{note.first};
    text += pitch == "r" ? "<rest/>"
                         : "<pitch><step>" + pitch.substr(0, 1) + "</step><octave>" +
                               pitch.substr(1) + "</octave></pitch>";
    text += note.duration > 0 ? "<duration>" + std::to_string(note.duration) + "</duration>" : "";
    text.append("<voice>").append(note.voice).append("</voice><type>").append(note.type);
    return text.append("</type>").append(note.more).append("</note>\n");
}

inline std::string Backup(int duration) {
    return "<backup><duration>" + std::to_string(duration) + "</duration></backup>\n";
}

inline std::string Forward(int duration) {
    return "<forward><duration>" + std::to_string(duration) + "</duration></forward>\n";
}

}  // namespace standin
