// A window without a desktop: its geometry, texts and lists, kept in memory. The program that acts
// as the host creates the windows.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "platform/menu.h"
#include "platform/window.h"

struct HWND__ {
    struct ListItem {
        std::u16string text;
        std::uint32_t data = 0;
    };
    struct Control {
        platform::Rectangle rectangle;
        std::vector<ListItem> items;  // of a drop-down list
    };

    platform::Rectangle rectangle;  // the borders included
    platform::Size client;
    std::u16string caption;
    std::map<std::uint16_t, Control> controls;
    std::uint16_t controlId = 0;  // of a window that is itself a control
    platform::OwnedMenu menuBar;
};

struct HMENU__ {
    struct Item {
        std::u16string text;
        std::uint32_t command = 0;
        platform::OwnedMenu submenu{};
        bool greyed = false;
        bool separator = false;
    };

    std::vector<Item> items;
};

namespace platform::headless {

// Every character is this many pixels wide.
inline constexpr int kCharacterWidth = 6;

void SetDesktop(const Rectangle& desktop);
// The window that last got the keyboard focus; null = none yet.
Window FocusedWindow();

}  // namespace platform::headless
