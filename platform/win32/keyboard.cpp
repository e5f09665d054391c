#include "platform/keyboard.h"

#include <windows.h>

namespace platform {

bool ShiftKeyDown() noexcept {
    return GetKeyState(VK_SHIFT) < 0;
}

}  // namespace platform
