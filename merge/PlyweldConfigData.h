// The merge's options, as they are stored.
#pragma once

#include <cstddef>

#include "shell/host/host_types.h"

#pragma pack(push, 2)

struct PlyweldConfigData {
    u16 size = sizeof(PlyweldConfigData);  // of the record, in bytes
    u16 sourceLayer = kAllLayers;          // or from 0
    u16 destinationLayer = 0;              // from 0
    u16 mode = 0;                          // MergeMode
#define MERGE_SWITCH(Name, member, initial, ...) u16 member = initial;
#include "shell/options/merge_switches.inc"
};

#pragma pack(pop)

static_assert(offsetof(PlyweldConfigData, sourceLayer) == 2);
static_assert(offsetof(PlyweldConfigData, hideAddedRests) == 10);

// The switches come last in the record.
inline constexpr std::size_t kMergeSwitchCount =
    (sizeof(PlyweldConfigData) - offsetof(PlyweldConfigData, rebeam)) / sizeof(u16);

namespace MergeMode {
inline constexpr u16 kMergeIntoTarget = 0;
inline constexpr u16 kReplaceInTarget = 1;
}  // namespace MergeMode
