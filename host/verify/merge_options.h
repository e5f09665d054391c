// The options of a merge, in the form in which the plug-in stores them.
#pragma once

#include "shell/host/host_types.h"

namespace standin {

struct MergeOptions {
    u16 size = sizeof(MergeOptions);  // bytes of this record
    u16 source = kAllLayers;
    u16 destination = 0;  // layers count from 0
    u16 mode = 0;         // 1: replace in target
#define MERGE_SWITCH(Name, member, initial, ...) u16 member = initial;
#include "shell/options/merge_switches.inc"
};

// The options that are check boxes of the dialog.
struct MergeSwitch {
    u16 MergeOptions::*member;
    const char* name;
    const char* jsonName;
};

inline constexpr MergeSwitch kMergeSwitches[] = {
#define MERGE_SWITCH(Name, member, initial, control, option, whenGiven, json, ...) \
    {&MergeOptions::member, #member, json},
#include "shell/options/merge_switches.inc"
};

}  // namespace standin
