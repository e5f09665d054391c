// The preferences of a layer, and its name.
#pragma once

#include <string>

#include "Class Files/score/records/EnigmaRecords.h"

class FinPILayer final : public LayerPrefsRecord {
public:
    // Layers count from 0. Loads the record; posts if the layer or its record does not exist.
    explicit FinPILayer(u16 layer);

    // In the user's language, counted from 1.
    std::u16string Name() const { return Name(GetCmper1()); }
    static std::u16string Name(u16 layer);
};
