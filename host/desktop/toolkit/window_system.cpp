#include "host/desktop/toolkit/window_system.h"

#include "host/desktop/toolkit/windows_api.h"

namespace standin::desktop {

void AwaitWindowSystem() {
    // The reply to a query comes after everything sent before it.
    HDC screen = GetDC(nullptr);
    GetPixel(screen, 0, 0);
    ReleaseDC(nullptr, screen);
}

}  // namespace standin::desktop
