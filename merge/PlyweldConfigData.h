// The merge's options, as they are stored.
#pragma once

#include <cstddef>

#include "shell/host/host_types.h"

#pragma pack(push, 2)

struct PlyweldConfigData {
    u16 size = 12;                 // of the record, in bytes
    u16 sourceLayer = kAllLayers;  // or from 0
    u16 destinationLayer = 0;      // from 0
    u16 mode = 0;                  // MergeMode
    u16 rebeam = 1;                // nonzero: the region is rebeamed after merging
    u16 hideAddedRests = 0;        // nonzero: rests left in a source layer are hidden
};

#pragma pack(pop)

static_assert(sizeof(PlyweldConfigData) == 12);
static_assert(offsetof(PlyweldConfigData, sourceLayer) == 2);
static_assert(offsetof(PlyweldConfigData, hideAddedRests) == 10);

namespace MergeMode {
inline constexpr u16 kMergeIntoTarget = 0;
inline constexpr u16 kReplaceInTarget = 1;
inline constexpr u16 kNeither = 65535;  // neither button of the dialog is on
}  // namespace MergeMode
