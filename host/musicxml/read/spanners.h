// Lines of a part (slurs, wedges and others): finds the two ends of each in document order, and
// makes smart shapes of those between notes.
#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "host/musicxml/lines.h"
#include "host/musicxml/note_details.h"
#include "host/score/document.h"

namespace standin {

// Elements at a note that belong to such a line.
bool IsSpanner(std::string_view elementName);

// One element of a line, at a note or in a direction or barline.
struct SpannerEnding {
    LineKind kind = LineKind::kSlur;
    LineRole role = LineRole::kStart;
    int number = 1;
    std::size_t offset = 0;  // of the element in the score's text
    std::string voice;  // of the note, or another number that identifies the stream in the part
    u16 staff = 0;
    u16 measure = 0;
    i32 position = 0;  // duration units
    u32 entry = 0;     // 0 = not at a note
    FragmentId fragment = 0;
    SpannerNote note{};
};

// Kind, role, number and offset from an element of the score; false if it does not belong to a
// line.
bool ReadLineEnd(pugi::xml_node element, SpannerEnding& ending);

class Spanners {
public:
    Spanners(Document& document, PartLines& lines) : m_document{document}, m_lines{lines} {}

    // Elements come in document order. Returns the line that the element belongs to.
    u32 Add(const SpannerEnding& ending);

    // Makes shapes of the lines that found their second end since the last call; the entries are
    // stored by now. False when the score cannot hold as many lines.
    [[nodiscard]] bool EndMeasure();

    // Makes shapes of one end each of those that found no other end. False as above.
    [[nodiscard]] bool KeepUnpaired();

private:
    struct Open {
        SpannerEnding ending;
        u32 line = 0;
    };
    struct Pair {
        SpannerEnding start;
        SpannerEnding stop;
        u32 line = 0;
    };

    u32 Start(const SpannerEnding& start);
    u32 Stop(const SpannerEnding& stop);
    u32 OnTheWay(const SpannerEnding& ending);
    std::vector<Open>::iterator FindStart(const SpannerEnding& ending);
    u32 NewLine(const SpannerEnding& ending);
    u32 Join(const SpannerEnding& start, const SpannerEnding& stop, u32 line);
    void AddShape(const Pair& pair);
    void AddShapeOf(const Open& open);
    void AddShape(const SpannerEnding& start, const SpannerEnding& stop, const SpannerText& text,
                  u32 line);

    Document& m_document;
    PartLines& m_lines;
    std::vector<Open> m_starts;  // waiting for their stop, in document order
    std::vector<Open> m_stops;   // of this measure, waiting for a start later in the text
    std::vector<Open> m_lost;    // stops without a start
    std::vector<Pair> m_pairs;   // not made into shapes yet
    bool m_fits = true;
};

}  // namespace standin
