// Lines between two notes (slurs, glissandi, slides, wavy lines): finds the two ends of each
// in a part and makes a smart shape of them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/musicxml/fragments.h"
#include "host/score/document.h"

namespace standin {

// Elements that are one end of such a line.
bool IsSpanner(std::string_view elementName);

// One end, at a note.
struct SpannerEnding {
    std::string name;    // of the element
    std::string number;  // as written; "1" when not given
    std::string voice;
    u16 staff = 0;
    u16 measure = 0;
    i32 position = 0;  // duration units
    u32 entry = 0;
    FragmentId fragment = 0;
    bool onLaterNote = false;  // not the chord's first note
    u16 pitch = 0;             // of that note
};

class Spanners {
public:
    explicit Spanners(Document& document) : m_document{document} {}

    void Start(SpannerEnding start);
    void Stop(SpannerEnding stop);

    // Ends whose other end the part lacks so far; forgets them.
    std::vector<SpannerEnding> TakeUnpaired();

private:
    void Join(const SpannerEnding& start, const SpannerEnding& stop);

    Document& m_document;
    std::vector<SpannerEnding> m_starts;  // waiting for their stop, in order of appearance
    std::vector<SpannerEnding> m_stops;   // read before their start: in a voice written earlier
};

}  // namespace standin
