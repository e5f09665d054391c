// The options of a merge, in the form in which the plug-in stores them.
#pragma once

#include "shell/host/host_types.h"

namespace standin {

struct MergeOptions {
    u16 size = 12;  // bytes of this record
    u16 source = kAllLayers;
    u16 destination = 0;  // layers count from 0
    u16 mode = 0;         // 1: replace in target
    u16 rebeam = 1;
    u16 hideRests = 0;
};

static_assert(sizeof(MergeOptions) == 12);

}  // namespace standin
