// Scores for tests, from a few characters.
#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "host/musicxml/music/compare.h"
#include "host/musicxml/read/read_score.h"
#include "host/musicxml/write/write_score.h"
#include "tests/unit/support/notation.h"

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

// A score read; the test ends when it is refused.
inline std::unique_ptr<ImportedScore> Read(std::string bytes) {
    ReadResult result = ReadScore(std::move(bytes));
    if (!result) {
        throw std::runtime_error{result.message + " (line " + std::to_string(result.line) + ")"};
    }
    return std::move(result.score);
}

// Every measure written anew.
inline std::string Rebuilt(const ImportedScore& score) {
    return WriteScore(score, {.rebuildAll = true});
}

inline std::string Layer(const ImportedScore& score, u16 staff, u16 measure, u16 layer) {
    return PrintLayer(*score.document, {staff, measure, layer});
}

// Of the first staff; none in a layer without a frame.
inline std::vector<EXENTRY> Entries(const ImportedScore& score, u16 measure, u16 layer) {
    const Frame* frame = score.document->FindFrame({1, measure, layer});
    return frame == nullptr ? std::vector<EXENTRY>{} : frame->entries;
}

inline CompareOptions Merged() {
    return {.merged = true, .replaced = {}};
}

// The differences between two scores, joined by line breaks.
inline std::string Differences(const ImportedScore& before, const ImportedScore& after,
                               const CompareOptions& options = {}) {
    std::string lines;
    for (const std::string& difference : Compare(MusicOf(before), MusicOf(after), options)) {
        lines += difference + '\n';
    }
    return lines;
}

}  // namespace standin
