// The controls of the Save Settings dialog.
#pragma once

#include "shell/host/host_types.h"

namespace SaveSettingsControl {
inline constexpr u16 kOk = 1;
inline constexpr u16 kCancel = 2;
inline constexpr u16 kListLabel = 3;
inline constexpr u16 kNameLabel = 4;
inline constexpr u16 kList = 5;
inline constexpr u16 kName = 7;
inline constexpr u16 kAdd = 8;
inline constexpr u16 kDelete = 9;
inline constexpr u16 kDeleteAll = 10;
inline constexpr u16 kSkipDialog = 11;
inline constexpr u16 kUseSubmenu = 12;
}  // namespace SaveSettingsControl
