// The state of the keyboard at this moment.
#pragma once

namespace platform {

bool ShiftKeyDown() noexcept;

}  // namespace platform
