// The current state of the keyboard.
#pragma once

namespace platform {

bool ShiftKeyDown() noexcept;

}  // namespace platform
