// The noteheads that a staff shows for each step of the scale, one record for each note value.
#pragma once

#include "Class Files/score/records/EnigmaRecords.h"

template <u16 kNoteValue>
class FinPIShapeNote final : public ShapeNotesRecord {
public:
    explicit FinPIShapeNote(u16 staff) : ShapeNotesRecord{staff, kNoteValue} {}
};

using FinPIShapeNoteDoubleWhole = FinPIShapeNote<0>;
using FinPIShapeNoteWhole = FinPIShapeNote<1>;
using FinPIShapeNoteHalf = FinPIShapeNote<2>;
using FinPIShapeNoteQuarter = FinPIShapeNote<3>;
