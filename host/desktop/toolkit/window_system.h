// The window system that carries out what the program's threads ask of their windows.
#pragma once

namespace standin::desktop {

// Returns when the window system has carried out what this thread asked of it so far, and has
// sent everything that it had to say to this thread until then.
void AwaitWindowSystem();

}  // namespace standin::desktop
