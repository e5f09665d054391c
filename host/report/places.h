// Names of places in a score for the user.
#pragma once

#include <string>
#include <vector>

#include "host/musicxml/imported_score.h"

namespace standin {

// "Flute", "Piano, staff 2"; "staff 3" where the part has no name. By staff, counted from 1
// through the score; the first one is empty.
std::vector<std::string> StaffNames(const ImportedScore& score);

// The number of the measure (from 1) as it is printed.
std::string PrintedNumber(const Document& document, u16 measure);

// The note's written pitch in the key of its measure, as PitchName says it.
std::string NameOfNote(const ImportedScore& score, u16 measure, const EXNOTE& note);

// The beat of the time signature, from 1, at a time in duration units from the barline; to
// thousandths.
double BeatAt(const Document& document, u16 measure, i32 onset);

// "2", "2.5"
std::string BeatText(double beat);

}  // namespace standin
