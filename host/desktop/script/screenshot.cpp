#include "host/desktop/script/screenshot.h"

#include <algorithm>

#include "host/desktop/toolkit/gdi_handles.h"

// gdiplus.h uses min and max as the system's own macros would give them.
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

namespace standin::desktop {

namespace {

// The encoder that comes with the system.
constexpr CLSID kPng = {
    0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

class DrawingLibrary {
public:
    DrawingLibrary() {
        const Gdiplus::GdiplusStartupInput input;
        m_started = Gdiplus::GdiplusStartup(&m_token, &input, nullptr) == Gdiplus::Ok;
    }
    ~DrawingLibrary() {
        if (m_started) {
            Gdiplus::GdiplusShutdown(m_token);
        }
    }
    DrawingLibrary(const DrawingLibrary&) = delete;
    DrawingLibrary& operator=(const DrawingLibrary&) = delete;

    explicit operator bool() const noexcept { return m_started; }

private:
    ULONG_PTR m_token = 0;
    bool m_started = false;
};

Bitmap CopyOfScreen(const RECT& area) {
    HDC screen = GetDC(nullptr);
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    Bitmap copy{CreateCompatibleBitmap(screen, width, height)};
    {
        const MemoryContext memory{CreateCompatibleDC(screen)};
        const Selected chosen{memory.get(), copy.get()};
        BitBlt(memory.get(), 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
    }
    ReleaseDC(nullptr, screen);
    return copy;
}

}  // namespace

bool SaveScreenshot(RECT area, const std::filesystem::path& file) {
    const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    RECT visible;
    const DrawingLibrary library;
    if (!library || IntersectRect(&visible, &area, &screen) == 0) {
        return false;
    }
    const Bitmap copy = CopyOfScreen(visible);
    Gdiplus::Bitmap picture{copy.get(), nullptr};
    return picture.Save(file.c_str(), &kPng, nullptr) == Gdiplus::Ok;
}

}  // namespace standin::desktop
