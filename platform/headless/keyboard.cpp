#include "platform/keyboard.h"

#include "platform/headless/state.h"

namespace platform {

bool ShiftKeyDown() noexcept {
    return headless::CurrentState().shiftDown;
}

}  // namespace platform
