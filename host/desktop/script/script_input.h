// Mouse and keyboard input of a script, through the system's own input queue.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "host/desktop/toolkit/windows_api.h"

namespace standin::desktop {

// A key and those held while it is pressed.
struct KeyStroke {
    WORD key = 0;
    std::vector<WORD> held;
};

// Such as "Tab", "Shift+Tab", "Ctrl+Z", "F4". Nothing for an unknown name.
std::optional<KeyStroke> ReadKeyStroke(std::string_view name);

// Each of these returns when the program has taken the input, so that the next step sees the same
// state as a person would. The window is the program's main window.
void PressKeys(HWND mainWindow, const KeyStroke& stroke);
void TypeText(HWND mainWindow, std::wstring_view text);
// Screen coordinates. The keys are held meanwhile.
void ClickAt(HWND mainWindow, POINT place, const std::vector<WORD>& held = {});
void DragFromTo(HWND mainWindow, POINT from, POINT to, const std::vector<WORD>& held = {});

}  // namespace standin::desktop
