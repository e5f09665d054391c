// The commands of a plug-in, a row each, in the order of its menu. What the plug-in lists, what it
// runs for an item and how its menu is reshaped follow from the rows.
#pragma once

#include <memory>
#include <span>
#include <string>

#include "Class Files/FinPIModeless.h"

struct CommandRow {
    u16 commandID;    // numbers its title string, its dialog and what is stored for it
    u32 description;  // string id: what the host says of its item
    // An object that owns itself once it is started. title: in the system's code page.
    std::unique_ptr<FinPIModeless> (*make)(WindowHandle owner, u16 item, const std::string& title);
};

template <typename Command>
std::unique_ptr<FinPIModeless> MakeCommand(WindowHandle owner, u16 item, const std::string& title) {
    return std::make_unique<Command>(owner, item, title);
}

// Defined by the plug-in. The first command gives the plug-in its title, and its saved settings
// follow the commands in the menu.
std::span<const CommandRow> Commands() noexcept;
