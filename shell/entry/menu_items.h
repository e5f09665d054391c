// The plug-in's items in the host's menu: its commands, and one for each saved setting.
#pragma once

#include <string>

#include "Class Files/CommandTable.h"
#include "shell/host/host_frames.h"

// Fills the descriptor of an item (from 0) and returns 1; 0 = no such item, nothing written.
i16 DescribeMenuItem(i16 item, MenuItemDescriptor* out);

// 1 = enabled, 0 = disabled: a saved setting that skips its dialog needs a selection.
i16 MenuItemStatus(i16 item);

// The command that an item runs: that of its row, or the first one with a saved setting.
const CommandRow& CommandOf(u16 item);

std::u16string CommandTitle(const CommandRow& row);

// The first command's title, and the title with the version, by which the host lists it when the
// items are to be gathered in a submenu.
std::u16string PluginTitle();
std::u16string VersionedPluginTitle();

// The title of a command or the name of a saved setting, followed by "..." when it shows its
// dialog; empty when there is no such item.
std::u16string ItemLabel(i16 item);
