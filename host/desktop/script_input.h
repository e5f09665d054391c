// Mouse and keyboard of a script, by way of the system's own input queue.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "host/desktop/windows_api.h"

namespace standin::desktop {

// A key and those held while it is pressed.
struct KeyStroke {
    WORD key = 0;
    std::vector<WORD> held;
};

// Such as "Tab", "Shift+Tab", "Ctrl+Z", "F4". Nothing for an unknown name.
std::optional<KeyStroke> ReadKeyStroke(std::string_view name);

void PressKeys(const KeyStroke& stroke);
void TypeText(std::wstring_view text);

// Screen coordinates. The keys are held meanwhile.
void ClickAt(POINT place, const std::vector<WORD>& held = {});
void DragFromTo(POINT from, POINT to, const std::vector<WORD>& held = {});

}  // namespace standin::desktop
