// Fields of records whose layout is assumed: whether they hold what they should.
#pragma once

#include <set>

#include "probe/Findings.h"
#include "shell/host/host_frames.h"
#include "shell/host/host_records.h"

namespace probe {

class Layouts {
public:
    void LookAt(const EXNOTE& note);
    void LookAt(const EDTTuplet2005& tuplet);
    void LookAt(const EDTLyric2011& lyric);
    void LookAt(const EDTSmartShapeEntMark& mark);
    // Reads the document's smart shapes. entries: the numbers of all entries, isWhole: of the whole
    // document, not only of its beginning.
    void LookAtShapes(const std::set<u32>& entries, bool isWhole, i16 measures);
    void Report(Findings& findings) const;

private:
    Tally m_pitches;
    Tally m_tuplets;
    Tally m_lyrics;
    Tally m_marks;
    Tally m_ends;
    std::set<u16> m_markedShapes;
};

}  // namespace probe
