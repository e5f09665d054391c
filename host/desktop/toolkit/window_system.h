// Synchronization with the window system.
#pragma once

namespace standin::desktop {

// Returns when the window system has processed this thread's requests so far and has sent it all
// messages up to then.
void AwaitWindowSystem();

}  // namespace standin::desktop
