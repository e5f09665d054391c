// The commands of the menu bar by number.
#pragma once

#include "host/score/application.h"

namespace standin::desktop {

namespace Command {
inline constexpr u16 kOpen = 101;
inline constexpr u16 kSave = 102;
inline constexpr u16 kSaveAs = 103;
inline constexpr u16 kClose = 104;
inline constexpr u16 kExit = 105;
inline constexpr u16 kUndo = 201;
inline constexpr u16 kRedo = 202;
inline constexpr u16 kSelectAll = 301;
inline constexpr u16 kSelectNone = 302;
inline constexpr u16 kWidenToMeasures = 303;
inline constexpr u16 kWidenToStaves = 304;
inline constexpr u16 kPageView = 401;  // the views follow each other as the host numbers them
inline constexpr u16 kScrollView = 402;
inline constexpr u16 kStudioView = 403;
inline constexpr u16 kFirstMeasure = 501;
inline constexpr u16 kLastMeasure = 502;
inline constexpr u16 kNextDocument = 503;
inline constexpr u16 kRebeam = 601;
inline constexpr u16 kUpdateLayout = 602;
inline constexpr u16 kAbout = 701;
inline constexpr u16 kReading = 702;
// The host's own numbers, which the plug-in knows too.
inline constexpr u16 kShowActiveLayerOnly = MenuCommand::kShowActiveLayerOnly;
inline constexpr u16 kFirstLayer = MenuCommand::kFirstLayer;
inline constexpr u16 kClearLayer = MenuCommand::kClearLayer;
// + the item of the plug-in, + the number of the document.
inline constexpr u16 kFirstPluginItem = 20000;
inline constexpr u16 kLastPluginItem = 20999;
inline constexpr u16 kFirstDocument = 30000;
}  // namespace Command

}  // namespace standin::desktop
