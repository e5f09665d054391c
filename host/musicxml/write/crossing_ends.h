// The beams of one voice that cross a barline.
#pragma once

#include <string>
#include <vector>

#include "host/musicxml/imported_score.h"

namespace standin {

// Of one entry of the measure as it was read.
struct CrossingEnds {
    Rational time{};
    std::string beams;       // all its <beam> elements
    bool beamsCome = false;  // from the measure before
    bool beamsGo = false;    // on to the measure after
};

// part and measure: as the score has them, the measure counted from 1.
std::vector<CrossingEnds> CrossingEndsOf(const ImportedScore& score, const ScorePart& part,
                                         u16 measure);

}  // namespace standin
