// The controls of the command's dialog.
#pragma once

#include "shell/host/host_types.h"

namespace PlyweldControl {
inline constexpr u16 kGo = 1;
inline constexpr u16 kClose = 2;
inline constexpr u16 kSelection = 1001;
inline constexpr u16 kFrom = 1003;
inline constexpr u16 kTo = 1005;
inline constexpr u16 kMergeMode = 1006;
inline constexpr u16 kReplaceMode = 1007;
inline constexpr u16 kSaveSettings = 1008;
}  // namespace PlyweldControl
