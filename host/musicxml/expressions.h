// Directions of a voice as the host's expression assignments.
#pragma once

#include "host/musicxml/imported_score.h"

namespace standin {

// The position of a direction.
struct ExpressionPlace {
    u16 staff = 0;
    u16 measure = 0;
    u16 layer = 0;
    i32 position = 0;      // duration units
    i16 graceIndex = 0;    // 1 for the first grace note of a run, 0 for none
    bool atEntry = false;  // an entry of the layer starts there
};

// Creates the assignment and, when it is new, the text expression definition. item: the direction's
// index in its measure of the part. False if the score has no room for another.
[[nodiscard]] bool AddExpression(ImportedScore& score, const ExpressionPlace& place,
                                 FragmentId text, u32 item);

// The item of an assignment.
u32 ItemOfExpression(const Bytes& record);

}  // namespace standin
