// Smart shapes: lines between two entries, such as slurs and wedges.
#pragma once

#include <map>
#include <set>

#include "host/score/document.h"
#include "host/score/records/tags.h"

namespace standin {

// Creates the shape under the next free number, with the entry numbers, staves and measures of its
// ends, and marks both end entries, once when they are the same. Returns its number; 0 when no
// number is left, or an entry has no room for one more mark. A shape keeps its record when an end's
// entry is deleted: that end then refers to no stored entry, and the shape is not drawn.
u16 AddSmartShape(Document& document, EDTSmartShape shape, u32 markTag = Tag::kShapeOnEntry);

// Which smart shapes mark an entry as one of their ends. Reads the marks of each entry once; what
// changes after that is not seen.
class ShapeMarks {
public:
    enum class State { kNow, kImported };
    ShapeMarks(const Document& document, State state) : m_document{document}, m_state{state} {}

    // Takes the shape's number.
    bool Has(u32 entry, u16 shape);
    bool AreAtBothEnds(const EDTSmartShape& shape, u16 number) {
        return Has(shape.start.entryNumber, number) && Has(shape.end.entryNumber, number);
    }

private:
    std::set<u16> Read(u32 entry) const;

    const Document& m_document;
    State m_state;
    std::map<u32, std::set<u16>> m_marks;
};

}  // namespace standin
