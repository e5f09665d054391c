// The beams of the entries of one voice, made whole where a change broke them.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "host/score/frame.h"

namespace standin {

// One entry in playing order.
struct BeamedEntry {
    BeamLevels levels{};
    bool isRest = false;   // beams may run over it
    bool isGrace = false;  // grace notes have beams of their own
    bool comesIn = false;  // from the measure before
    bool goesOn = false;   // in the measure after, when nothing follows in this one
};

// Reads <beam> elements; levels above the eighth are left out.
BeamLevels ReadBeams(std::string_view elements);

// The elements for the levels.
std::string WriteBeams(const BeamLevels& levels);

// Ends what was begun and begins what goes on, so that each beam joins at least two entries
// of this measure or the next.
void MakeBeamsWhole(std::vector<BeamedEntry>& entries);

}  // namespace standin
