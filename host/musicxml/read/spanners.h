// Lines between two notes (slurs, glissandi, slides, wavy lines): finds the two ends of each
// in a part and makes a smart shape of them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/musicxml/note_details.h"
#include "host/score/document.h"

namespace standin {

// Elements that are one end of such a line.
bool IsSpanner(std::string_view elementName);

// One end, at a note.
struct SpannerEnding {
    std::string name;  // of the element
    bool isStart = false;
    std::string number;  // as written; "1" when not given
    std::string voice;
    u16 staff = 0;
    u16 measure = 0;
    i32 position = 0;  // duration units
    bool atGrace = false;
    u32 entry = 0;
    FragmentId fragment = 0;
    SpannerNote note{};
};

class Spanners {
public:
    explicit Spanners(Document& document) : m_document{document} {}

    void Add(SpannerEnding ending) { m_measure.push_back(std::move(ending)); }

    // Pairs the ends added since the last measure, in order of time, whichever voice was
    // written first. False when the score cannot hold as many lines.
    [[nodiscard]] bool EndMeasure();

    // Makes shapes of one end each of those that found no other end. False as above.
    [[nodiscard]] bool KeepUnpaired();

private:
    void Stop(SpannerEnding stop);
    void Join(const SpannerEnding& start, const SpannerEnding& stop);
    void AddShape(const SpannerEnding& start, const SpannerEnding& stop, const SpannerText& text);

    Document& m_document;
    std::vector<SpannerEnding> m_measure;  // of the measure being read
    std::vector<SpannerEnding> m_starts;   // waiting for their stop, in order of time
    std::vector<SpannerEnding> m_stops;    // without a start
    bool m_fits = true;
};

}  // namespace standin
