// Which smart shapes mark an entry as one of their ends.
#pragma once

#include <map>
#include <set>

#include "host/score/document.h"

namespace standin {

// Reads the marks of each entry once; what changes after that is not seen.
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
