// How long a script waits for the program, and between two checks; milliseconds.
#pragma once

namespace standin::desktop {

inline constexpr int kPatience = 4000;
inline constexpr int kLook = 20;

}  // namespace standin::desktop
