// What the layers of a score hold, staff by staff and measure by measure.
#pragma once

#include <array>
#include <vector>

#include "host/musicxml/imported_score.h"

namespace standin {

// What a layer holds in one measure of one staff.
struct LayerContent {
    int notes = 0;    // noteheads
    int entries = 0;  // notes and chords, grace notes included
    int visibleRests = 0;
    int hiddenRests = 0;
};

// One staff in one measure, as it is now.
struct StaffMeasureContent {
    u16 staff = 0;  // counted from 1 through the score
    u16 measure = 0;
    std::array<LayerContent, kLayers> layers{};
};

// Every staff and measure that has any entry, by staff, then measure.
std::vector<StaffMeasureContent> ContentOf(const ImportedScore& score);

}  // namespace standin
