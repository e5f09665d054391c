// The contents of a score's layers, by staff and measure.
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

// The present contents of one staff in one measure.
struct StaffMeasureContent {
    u16 staff = 0;  // counted from 1 through the score
    u16 measure = 0;
    std::array<LayerContent, kLayers> layers{};
};

// Every staff and measure that has any entry, by staff, then measure.
std::vector<StaffMeasureContent> ContentOf(const ImportedScore& score);

}  // namespace standin
